#!/usr/bin/env python3
"""Checks what the command line tool reads in captures of packets, which are made here.
Usage: packets.py ZTXML"""

import itertools
import json
import os
import socket
import struct
import subprocess
import sys
import tempfile
import time

ZTXML = sys.argv[1]
failures = 0


# ---- Messages -----------------------------------------------------------------------------------
def document(label):
    return (f'<isComposing xmlns="urn:ietf:params:xml:ns:im-iscomposing"><state>{label}</state>'
            '</isComposing>').encode()


def message(start, body=b"", kind="application/im-iscomposing+xml", *headers, length=True):
    lines = [start, *headers]
    if body:
        lines.append(f"Content-Type: {kind}")
    if length:
        lines.append(f"Content-Length: {len(body)}")
    return "\r\n".join(lines).encode() + b"\r\n\r\n" + body


def sip(label):
    return message("MESSAGE sip:ada@example.com SIP/2.0", document(label))


def put(label):
    return message("PUT /doc HTTP/1.1", document(label))


# ---- Packets ------------------------------------------------------------------------------------
A4, B4 = (socket.inet_aton(address) for address in ("192.0.2.1", "192.0.2.2"))
A6, B6 = (socket.inet_pton(socket.AF_INET6, address) for address in ("2001:db8::1", "2001:db8::2"))


def ip4(protocol, payload, identity=1, place=0, more=False):
    return struct.pack(">BBHHHBBH", 0x45, 0, 20 + len(payload), identity,
                       place // 8 | more << 13, 64, protocol, 0) + A4 + B4 + payload


def ip6(protocol, payload):
    return struct.pack(">IHBB", 6 << 28, len(payload), protocol, 64) + A6 + B6 + payload


def udp(payload, port=40000):
    return struct.pack(">HHHH", port, port + 1, 8 + len(payload), 0) + payload


def tcp(sequence, payload=b"", port=40000, syn=False):
    return struct.pack(">HHIIBBHHH", port, 443, sequence % 2**32, 0, 6 << 4, 0x02 if syn else 0x10,
                       1000, 0, 0) + b"\1\1\1\0" + payload


def tcp4(*arguments, **more):
    return ip4(6, tcp(*arguments, **more))


def fragments4(packet, size, identity=7):
    payload = packet[20:]
    return [ip4(17, payload[at:at + size], identity, at, at + size < len(payload))
            for at in range(0, len(payload), size)]


def fragments6(payload, size):
    """With a header of options before the fragments' and another one in the first of them."""
    payload = b"\x11\0" + bytes(6) + payload
    return [ip6(0, b"\x2c\0" + bytes(6) + struct.pack(">BBHI", 60, 0,
                                                      at | (at + size < len(payload)), 9) +
                payload[at:at + size]) for at in range(0, len(payload), size)]


def ethernet(packet, *tags):
    kind = 0x0800 if packet[0] >> 4 == 4 else 0x86dd
    kinds = [*(0x88a8 for _ in tags[1:]), *(0x8100 for _ in tags[:1]), kind]
    head = bytes(12) + struct.pack(">H", kinds[0])
    for tag, following in zip(tags, kinds[1:]):
        head += struct.pack(">HH", tag, following)
    return head + packet


def pcap(packets, link=101, order="<", magic=0xa1b2c3d4, snaplen=65535):
    """A packet is its bytes, or a time and its bytes."""
    data = bytearray(struct.pack(order + "IHHiIII", magic, 2, 4, 0, 0, 262144, link))
    for number, packet in enumerate(packets):
        at, packet = packet if isinstance(packet, tuple) else (number, packet)
        part = packet[:snaplen]
        data += struct.pack(order + "IIII", 1700000000 + at, 0, len(part), len(packet)) + part
    return data


def pcapng(packets, link=1, order="<"):
    def block(kind, body):
        body += bytes(-len(body) % 4)
        size = struct.pack(order + "I", len(body) + 12)
        return struct.pack(order + "I", kind) + size + body + size

    data = bytearray(block(0x0a0d0d0a, struct.pack(order + "IHHq", 0x1a2b3c4d, 1, 0, -1)))
    data += block(1, struct.pack(order + "HHI", link, 0, 0))
    for number, packet in enumerate(packets):
        data += block(6, struct.pack(order + "IIIII", 0, 0, number, len(packet), len(packet)) +
                      packet)
    return data


# ---- Checks -------------------------------------------------------------------------------------
def expect(what, data, labels, *notes, status=0):
    """`labels` of the documents, with the numbers of their messages where these differ from their
    own; `notes` are all lines of standard error, without the names."""
    global failures
    with open("capture", "wb") as file:
        file.write(data)
    run = subprocess.run([ZTXML, "show", "--json", "capture"], capture_output=True, text=True,
                         errors="replace")
    numbered = [label if isinstance(label, tuple) else (number, label)
                for number, label in enumerate(labels, 1)]
    wanted = [(f"capture#{number}", label) for number, label in numbered]
    shown = [json.loads(line) for line in run.stdout.splitlines()]
    got = [(one["file"], one["document"].get("state")) for one in shown if "document" in one]
    told = [line.split(": ", 2)[2] for line in run.stderr.splitlines()]
    if (got, told, run.returncode) != (wanted, list(notes), status):
        failures += 1
        print(f"FAILED: {what}: exit status {run.returncode}, not {status}\n  got {got}\n  not {wanted}"
              f"\n  told {told}\n  not {list(notes)}", file=sys.stderr)


def links_and_files():
    four, six = ip4(17, udp(sip("four"))), ip6(17, udp(sip("six")))
    both = ["four", "six"]
    ethernets = [ethernet(four), ethernet(six)]
    for order in "<>":
        for magic in (0xa1b2c3d4, 0xa1b23c4d):
            expect("pcap", pcap(ethernets, 1, order, magic), both)
        expect("pcapng", pcapng(ethernets, 1, order), both)
    expect("tags", pcap([ethernet(four, 5), ethernet(six, 5, 6)], 1), both)
    expect("cooked", pcap([bytes(14) + b"\x08\0" + four, bytes(14) + b"\x86\xdd" + six], 113), both)
    expect("cooked, tag", pcap([bytes(14) + b"\x81\0\0\5\x08\0" + four], 113), both[:1])
    expect("cooked v2", pcap([b"\x08\0" + bytes(18) + four, b"\x86\xdd" + bytes(18) + six], 276),
           both)
    expect("loopback", pcap([b"\2\0\0\0" + four, b"\x1e\0\0\0" + six], 0), both)
    expect("raw", pcap([four, six]), both)
    expect("others between", pcap([ethernet(four), bytes(12) + b"\x08\6" + bytes(28), bytes(60)], 1),
           both[:1])
    expect("authenticated", pcap([ip6(51, b"\x11\4" + bytes(22) + udp(sip("x")))]), ["x"])
    expect("two, not in time", pcap([(2, four), (1, six), (0, ip4(17, udp(message(
        "INVITE sip:a SIP/2.0", b"v=0", "application/sdp"))))]), [(2, "six"), (3, "four")],
           "1 of 3 messages without an XML body")
    expect("no such link", pcap([four], 105), [], "capture: packets of the link type IEEE802_11 are "
           "not read", status=1)
    expect("nothing", pcap([ip4(17, udp(b"\0"))]), [],
           "capture: no message of SIP or HTTP in 1 packet", status=1)
    expect("a file that is cut", pcap([four, six])[:-1], ["four"], "capture: truncated dump file; "
           f"tried to read {len(six)} captured bytes, only got {len(six) - 1}", status=1)
    expect("a packet that is cut", pcap([four, ip6(17, udp(sip("long" * 99)))], snaplen=len(four)),
           both[:1], "1 packet was captured in part only", "1 message is incomplete and not read")
    expect("malformed", pcap([four, b"\x4f" + four[1:30], four[:20] + b"\0" * 5, b"\x60"]), both[:1],
           "3 packets are malformed")


def fragments():
    whole = ip4(17, udp(sip("whole")))
    parts = fragments4(whole, 48)
    for order in (parts, parts[::-1], parts[1:] + parts[:1], [parts[0]] + parts):
        expect("fragments", pcap(order), ["whole"])
    lacks = "1 datagram lacks fragments, or they overlap"
    nothing = "capture: no message of SIP or HTTP in %d packets"
    for lost in (0, 1, len(parts) - 1):
        rest = parts[:lost] + parts[lost + 1:]
        expect("lost", pcap(rest), [], lacks, nothing % len(rest), status=1)
    overlap = fragments4(whole, 96)[0]
    expect("overlap", pcap([overlap] + parts[1:]), [], lacks, nothing % len(parts), status=1)
    # A datagram of the number that an old one had, of which only the beginning came.
    expect("old", pcap([(0, parts[0]), *((100, part) for part in parts)]), ["whole"], lacks)
    expect("fragments of IPv6", pcap(fragments6(udp(sip("long")), 40)[::-1]), ["long"])
    expect("mixed", pcap([part for both in zip(parts, fragments4(whole, 48, 8)) for part in both]),
           ["whole", "whole"])


def streams():
    text = sip("a") + b"\r\n\r\n" + sip("b") + sip("c")
    size = len(sip("a"))
    cut = [0, 30, size - 4, len(text) - 150, len(text)]
    for start in (5, 2**32 - 100):
        packets = [tcp4(start + a, text[a:b]) for a, b in zip(cut, cut[1:])]
        syn = tcp4(start - 1, syn=True)
        orders = list(itertools.permutations(zip(cut, cut[1:])))
        expect("order", pcap(packet for port, order in enumerate(orders, 50000) for packet in (
            tcp4(start - 1, port=port, syn=True),
            *(tcp4(start + a, text[a:b], port) for a, b in order))), "abc" * len(orders))
        again = tcp4(start + 10, text[10:cut[2] + 10])
        expect("again", pcap([*packets[:2], again, packets[1], *packets[2:], packets[3], again]),
               "abc")
        expect("late", pcap([*packets[1:], syn, packets[0]]), "abc")
    gap = "1 gap in a connection: packets are missing"
    broken = "1 message is incomplete and not read"
    expect("gap", pcap([syn, packets[0], *packets[2:]]), "bc", gap, broken)
    expect("gap in a body", pcap([syn, *packets[:3], tcp4(start + cut[3] + 9, text[cut[3] + 9:])]),
           "ab", gap, broken)
    expect("first one lost", pcap([syn, *packets[1:]]), "bc", gap)
    expect("from within", pcap(packets[1:]), "bc")
    expect("end lost", pcap(packets[:-1] + [tcp4(start + cut[3], text[cut[3]:-9])]), "ab", broken)
    expect("both ends", pcap([ip6(6, tcp(1, sip("to"))), ip6(6, tcp(1, sip("from"), port=443))]),
           ["to", "from"])
    expect("ports again", pcap([tcp4(9, syn=True), tcp4(10, sip("one")), tcp4(10**9, syn=True),
                                tcp4(10**9 + 1, sip("two"))]), ["one", "two"])
    expect("stray", pcap([syn, tcp4(start, sip("a") + b"junk\r\n" + sip("b"))]), "ab",
           "6 bytes between messages are in none")
    bare = message("MESSAGE sip:a SIP/2.0", document("bare"), length=False)
    huge = sip("huge").replace(b"Content-Length: ", b"Content-Length: 99999999999999999999")
    expect("lengths", pcap([tcp4(1, bare + huge + sip("l").replace(b"Content-Length", b"l"))]),
           ["bare", "l"], broken)
    # The time is that of the packet that a message begins in.
    second, third = size, 2 * size + 2
    expect("times", pcap([(3, tcp4(0, text[:second])), (4, ip4(17, udp(sip("x")))),
                          (6, tcp4(second, text[second:third])), (7, ip4(17, udp(sip("y")))),
                          (8, tcp4(third, text[third:]))]), "axbyc")


def http():
    def response(status, body=b"", *headers, **more):
        return message("HTTP/1.1 " + status, body, "application/xml", *headers, **more)

    chunked = (message("HTTP/1.1 200 OK", b"", "", "Content-Type: text/plain",
                       "Transfer-Encoding: chunked", length=False) +
               b"5;x=y\r\nPUT /\r\n1A\r\nabcdefghijklmnopqrstuvwxyz\r\n0\r\nX: y\r\n\r\n")
    head = message("HTTP/1.1 200 OK", b"", "", "Content-Length: 999", length=False)
    expect("requests", pcap([tcp4(1, put("a") + message("GET /a HTTP/1.1", length=False) + put("b"))]),
           [(1, "a"), (3, "b")], "1 of 3 messages without an XML body")
    replies = (chunked + response("200 OK", document("c")) + head +
               response("304 Not Modified", b"", "Content-Length: 7", length=False) +
               response("200 OK", document("close"), length=False))
    packets = [tcp4(at + 1, replies[at:at + 64]) for at in range(0, len(replies), 64)]
    expect("responses", pcap(packets), [(2, "c"), (5, "close")],
           "3 of 5 messages without an XML body")
    for size in (b"5x", b"fffffffff", b"4"):
        expect("chunks", pcap([tcp4(1, chunked.replace(b"5;x=y", size) + put("a"))]), ["a"],
               "1 message is incomplete and not read")


def encrypted():
    record = b"\x16\3\1\0\x04abcd" + b"\x17\3\3\0\x10" + bytes(16)
    packets = [ip4(17, udp(sip("x"))), tcp4(1, record), ip4(6, tcp(1, record, 50000)),
               ip4(6, struct.pack(">HH", 443, 40000) + tcp(1, record)[4:]),
               tcp4(99, record[9:]), ip4(50, bytes(40)), ip6(50, bytes(40)),
               ip4(17, udp(b"\1\2\3\4" + bytes(40), 4500)), ip4(17, udp(bytes(44), 4500))]
    packets[3] = packets[3][:12] + B4 + A4 + packets[3][20:]  # what the other end sends
    expect("encrypted", pcap(packets), "x", "2 connections are encrypted (TLS)",
           "3 packets are encrypted (ESP)")
    expect("within", pcap([packets[0], tcp4(1, b"rest"), tcp4(5, record[9:])]), "x",
           "1 connection is encrypted (TLS)")
    expect("by a proxy", pcap([tcp4(1, message("CONNECT a:443 HTTP/1.1") + record), packets[0]]),
           [(2, "x")], "1 connection is encrypted (TLS)", "1 of 2 messages without an XML body")


def many():
    count = 10000
    packets, sequence = [], 1
    for number in range(count):
        text = sip(number)
        if number % 3 == 0:
            packets += fragments4(ip4(17, udp(text)), 136, number)
        elif number % 3 == 1:
            packets.append(ip6(17, udp(text)))
        else:
            parts = [tcp4(sequence, text[:100]), tcp4(sequence + 100, text[100:])]
            packets += [parts[1], parts[0], parts[1]]
            sequence += len(text)
    with open("many", "wb") as file:
        file.write(pcapng(packets, 101))
    start = time.monotonic()
    run = subprocess.run([ZTXML, "check", "--quiet", "many"], capture_output=True, text=True)
    seconds = time.monotonic() - start
    print(f"packets: {count} messages in {seconds:.2f} s")
    with open("many", "rb") as file:
        shown = subprocess.run([ZTXML, "show", "-"], stdin=file, capture_output=True, text=True)
    wanted = {f'state = "{number}"' for number in range(count)}
    got = [line.strip() for line in shown.stdout.splitlines() if " state = " in line]
    return (run.returncode == 0 and not run.stdout + run.stderr + shown.stderr and
            len(got) == count and set(got) == wanted and seconds < 20)


def main():
    global failures
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        links_and_files()
        fragments()
        streams()
        http()
        encrypted()
        if not many():
            failures += 1
            print("FAILED: many messages", file=sys.stderr)
        os.chdir("/")
    print("packets: all passed" if not failures else f"packets: {failures} failed")
    sys.exit(failures > 0)


if __name__ == "__main__":
    main()
