#!/usr/bin/env python3
"""Writes captures of packets for the tests of the report.
Usage: report_capture.py DOCUMENTS_DIR   (writes mixed.pcap, other.pcap, whose message is in the midst
of the others' time, and many.pcap, with 10000 messages)"""

import sys

sys.dont_write_bytecode = True
import packets

NS = "urn:ietf:params:xml:ns:"
REGINFO, PRESENCE, SIMSERVS = (f"application/{kind}+xml" for kind in
                               ("reginfo", "pidf", "vnd.etsi.simservs"))
# What a browser would run if any of it came out as markup.
HOSTILE = "</script></style></pre><img src=x onerror=alert(1)>\"'--"


def reginfo(version, state, *contacts):
    listed = "".join(f'<contact id="{name}" state="{state}" event="{event}"><uri>sip:{name}@192.0.2.1'
                     '</uri></contact>' for name, state, event in contacts)
    return (f'<reginfo xmlns="{NS}reginfo" version="{version}" state="{state}"><registration '
            f'aor="sip:ada@example.com" id="r1" state="active">{listed}</registration></reginfo>').encode()


def presence(basic, note=""):
    return (f'<presence xmlns="{NS}pidf" entity="pres:ada@example.com"><tuple id="t1"><status>'
            f'<basic>{basic}</basic></status></tuple>{note}</presence>').encode()


def sip(start, call, kind="", body=b""):
    return packets.message(f"{start} SIP/2.0", body, kind, f"Call-ID: {call}")


def notify(call, kind, body):
    return sip("NOTIFY sip:ada@example.com", call, kind, body)


def datagram(number, text):
    return number, packets.ip4(17, packets.udp(text))


def put(documents, old, new):
    with open(f"{documents}/simservs.xml", "rb") as file:
        body = file.read()
    assert old in body
    return packets.message("PUT /users/ada/simservs.xml HTTP/1.1", body.replace(old, new, 1), SIMSERVS)


def mixed(documents):
    first = ("c1", "active", "registered")
    hostile = HOSTILE.replace("<", "&lt;").encode() + b" \xe2\x80\xae"
    texts = [
        sip("INVITE sip:bob@example.com", "call-1", "application/sdp", b"v=0\r\n"),
        notify("reg-1", REGINFO, reginfo(0, "full", first)),
        notify("reg-1", REGINFO, reginfo(1, "partial", ("c1", "active", "refreshed"),
                                         ("c2", "active", "registered"))),
        notify("reg-1", REGINFO, reginfo(1, "partial", ("c1", "active", "refreshed"))),
        notify("reg-1", REGINFO, reginfo(4, "partial", ("c2", "terminated", "expired"))),
        # A subscription of its own, whose versions are, too.
        notify("reg-2", REGINFO, reginfo(0, "full", first)),
        notify("pres-1", PRESENCE, presence("open", "<note>here</note>")),
        notify("pres-1", PRESENCE, presence("closed")),
        notify("pres-1", PRESENCE, presence("open")[:-5]),
        notify("reg-3", REGINFO, reginfo(0, "full").replace(b"<contact", b"<c").replace(
            b' id="r1"', b' id="r1" hint="1"')),
        sip(f"MESSAGE sip:{HOSTILE.replace(' ', '')}@example.com", HOSTILE,
            "application/im-iscomposing+xml",
            packets.document("x").replace(b">x<", b">" + hostile + b" \x01\xff<")),
    ]
    found = [datagram(number, text) for number, text in enumerate(texts)]
    sequence = 1
    for number, text in enumerate((put(documents, b"true", b"true"), put(documents, b"true", b"false"))):
        found.append((50 + number, packets.tcp4(sequence, text)))
        sequence += len(text)
    found += [(60, packets.ip4(50, bytes(40)))] * 3  # ESP
    return packets.pcap(found)


def many():
    texts = (notify(f"reg-{number % 7}", REGINFO,
                    reginfo(number // 7, "partial" if number // 7 else "full",
                            (f"c{number % 90}", "active", "registered"))) for number in range(10000))
    return packets.pcap([datagram(number, text) for number, text in enumerate(texts)])


def other():
    return packets.pcap([datagram(30, sip("MESSAGE sip:bob@example.com", "call-2"))])


if __name__ == "__main__":
    for path, data in (("mixed.pcap", mixed(sys.argv[1])), ("other.pcap", other()),
                       ("many.pcap", many())):
        with open(path, "wb") as file:
            file.write(data)
