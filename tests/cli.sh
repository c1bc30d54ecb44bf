#!/usr/bin/env bash
# Checks the command line tool and the examples as their users run them.
# Usage: cli.sh ZTXML DOCUMENTS_DIR [EXAMPLES_DIR]   (the last: where the example programs are)
set -uo pipefail

# shellcheck source=tests/cli-support.sh
source "$(dirname "$0")/cli-support.sh"
examples="${3:-}"

# ---- What is printed ----------------------------------------------------------------------------
printf '<?xml version="1.0"?>\n<p:a xmlns="urn:d" xmlns:p="urn:p" x="&quot;\\">\n <b/>t&lt;\t"\1</p:a>\n' \
  >"$work/small.xml"
expect 0 "" "$ztxml" events "$work/small.xml"
prints 'start p:a
attribute p:a xmlns="urn:d"
attribute p:a xmlns:p="urn:p"
attribute p:a x="\"\\"
opened p:a
start b
opened b
end /b ""
end /p:a "t&lt;\t\"\x01"'
expect 0 "" "$ztxml" namespaces "$work/small.xml"
prints $'(default)\turn:d\np\turn:p'
expect 0 "" "$ztxml" schemas
grep -Eq '^26 +Reginfo +reginfo +urn:ietf:params:xml:ns:reginfo +read, write$' "$work/out" ||
  fail "schemas: $(cat "$work/out")"

# ---- Reading and writing ------------------------------------------------------------------------
for document in "$documents"/*.xml; do
  if [[ "$document" == */wap-provisioningdoc.xml || "$document" == */volte-config-info.xml ]]; then
    expect 3 "is only read" "$ztxml" roundtrip "$document"
    continue
  fi
  # The root of one has a name that XML does not allow.
  note=""
  [[ "$document" == */call-waiting-indication.xml ]] && note='XML does not allow the name "3gpp-ims"'
  expect 0 "$note" "$ztxml" roundtrip "$document"
  mv "$work/out" "$work/once.xml"
  expect 0 "$note" "$ztxml" roundtrip - <"$work/once.xml"
  cmp "$work/once.xml" "$work/out" || fail "$document: no fixed point"
  # Every value that is written is shown; words are shown one by one.
  "$ztxml" events "$work/once.xml" |
    sed -n -e '/^attribute [^ ]* xmlns/d' -e '/^attribute [^ ]* xsi:/d' \
      -e 's/^attribute .*="\(.*\)"$/\1/p' -e 's/^end [^ ]* "\(.*\)"$/\1/p' >"$work/values"
  expect 0 "" "$ztxml" show "$document"
  awk 'NR == FNR { shown = shown $0; next }
       { gsub(/\\n/, " ") }
       index(shown, $0) == 0 { for (i = 1; i <= NF; ++i) if (index(shown, "= \"" $i "\"") == 0) print }' \
    "$work/out" "$work/values" >"$work/missing"
  [[ -s "$work/values" && ! -s "$work/missing" ]] ||
    fail "$document: not shown: $(cat "$work/missing")"
done
expect 0 "" "$ztxml" roundtrip "$documents/pub-gruu.xml" "$documents/temp-gruu.xml"
[[ "$(grep -c '^<?xml' "$work/out")" == 2 ]] || fail "several are run together: $(cat "$work/out")"
expect 0 "" "$ztxml" roundtrip "$documents/simservs-prefixed.xml"
grep -qF '<ss:media>video</ss:media>' "$work/out" || fail "prefixed: $(cat "$work/out")"
"$ztxml" roundtrip "$documents/reginfo.xml" >"$work/once.xml"
for schema in ReGiNfO 26; do
  expect 0 "" "$ztxml" roundtrip --schema "$schema" "$documents/reginfo.xml"
  cmp "$work/once.xml" "$work/out" || fail "--schema $schema: written differently"
done

# ---- Showing and comparing ----------------------------------------------------------------------
expect 0 "" "$ztxml" show "$documents"/*.xml
expect 0 "" "$ztxml" check "$documents"/*.xml
[[ "$(tail -n 1 "$work/out")" == "documents: $(ls "$documents"/*.xml | wc -l) ok, 0 refused, 0 faulty" ]] ||
  fail "check: $(tail -n 1 "$work/out")"
expect 0 "" "$ztxml" check --quiet "$documents"/*.xml
prints ''
printf '<conference-info state="full" x="\x1b\xff" entity="sip:c"><conference-description><keywords>a b</keywords>
</conference-description><users><user entity="sip:u1"><roles><entry>host</entry></roles></user>
<user entity="sip:u2"/></users><x:y xmlns:x="urn:x"/></conference-info>' >"$work/conference.xml"
expect 0 "" "$ztxml" show "$work/conference.xml"
prints 'conference-info : zt_conference_type
  @state = full
  @x = "\x1b\xff"
  @entity = "sip:c"
  conference-description : zt_conference_description_type
    keywords : zt_keywords_type
      (words) = "a"
      (words) = "b"
  users : zt_users_type
    user : zt_user_type
      @entity = "sip:u1"
      roles : zt_user_roles_type
        entry = "host"
    user : zt_user_type
      @entity = "sip:u2"'
cd "$work" || exit 1
expect 1 "none.xml: file: no such file" "$ztxml" show --json conference.xml none.xml
prints '{"file":"conference.xml","schema":"ConferenceInfo","document":{"#element":"conference-info","#type":"zt_conference_type","@state":"full","#attributes":[{"name":"x","value":"\u001b\ufffd"}],"@entity":"sip:c","conference-description":{"#element":"conference-description","#type":"zt_conference_description_type","keywords":{"#element":"keywords","#type":"zt_keywords_type","#words":["a","b"]}},"users":{"#element":"users","#type":"zt_users_type","user":[{"#element":"user","#type":"zt_user_type","@entity":"sip:u1","roles":{"#element":"roles","#type":"zt_user_roles_type","entry":["host"]}},{"#element":"user","#type":"zt_user_type","@entity":"sip:u2"}]}}}
{"file":"none.xml","error":{"kind":"file","message":"no such file"}}'
cd "$OLDPWD" || exit 1
# What types keep by other means than rows.
expect 0 "" "$ztxml" show "$documents/simservs.xml"
grep -q '^  communication-diversion : communication-diversion$' "$work/out" || fail "$(cat "$work/out")"
expect 0 "" "$ztxml" show "$documents/xcap-error-uniqueness.xml"
grep -q '^      alt-value = "sip:' "$work/out" || fail "$(cat "$work/out")"
expect 0 "" "$ztxml" show --schema 27 "$work/small.xml"
grep -qx '  @p = "urn:p"' "$work/out" || fail "$(cat "$work/out")"
expect 0 "" "$ztxml" show "$documents/wap-provisioningdoc.xml"
grep -qx '      @value = "ap2001"' "$work/out" || fail "$(cat "$work/out")"

sed -e 's/a b</a c</' -e 's/ state="full"//' -e 's/u1/u0/' -e 's|<user entity="sip:u2"/>|<user entity="sip:u2"><cascaded-focus>f</cascaded-focus></user>|' \
  -e 's|</users>|<user/></users>|' "$work/conference.xml" >"$work/changed.xml"
expect 1 "" "$ztxml" diff "$work/conference.xml" "$work/changed.xml"
prints '- /conference-info/@state = full
~ /conference-info/conference-description/keywords/(words)[2]: "b" -> "c"
- /conference-info/users/user[1] : zt_user_type @entity="sip:u1"
-     @entity = "sip:u1"
-     roles : zt_user_roles_type
-       entry = "host"
+ /conference-info/users/user[1] : zt_user_type @entity="sip:u0"
+     @entity = "sip:u0"
+     roles : zt_user_roles_type
+       entry = "host"
+ /conference-info/users/user[2]/cascaded-focus = "f"
+ /conference-info/users/user[3] : zt_user_type'
printf '<pub-gruu uri="%060d-old"/>' 0 >"$work/old.xml"
printf '<pub-gruu uri="%060d-new"/>' 0 >"$work/new.xml"
expect 1 "" "$ztxml" diff "$work/old.xml" "$work/new.xml"
prints '~ /pub-gruu/@uri: ..."0000000000000000000-old" -> ..."0000000000000000000-new"'
expect 0 "" "$ztxml" diff "$work/changed.xml" - <"$work/changed.xml"
expect 1 "" "$ztxml" diff "$work/conference.xml" "$documents/reginfo.xml"
expect 2 "none.xml: file: no such file" "$ztxml" diff "$work/conference.xml" "$work/none.xml"

# ---- Captured messages --------------------------------------------------------------------------
body="$(tr -d '\n' <"$documents/reginfo.xml")"
printf 'NOTIFY sip:a@b SIP/2.0\r\nEvent: reg\r\nl: %d\r\nc:\r\n application/reginfo+xml;charset=utf-8\r\n\r\n%s\r\n\r\n' \
  "$(printf %s "$body" | wc -c)" "$body" >"$work/notify.txt"
expect 0 "" "$ztxml" diff "$work/notify.txt" "$documents/reginfo.xml"
{
  printf 'Content-Type: multipart/related; type="application/rlmi+xml"; boundary="a\\"; b"\n\npreamble\n--a"; b\n'
  printf 'Content-Type: application/rlmi+xml\n\n%s\n--a"; b\n' "$(cat "$documents/rlmi.xml")"
  printf 'Content-Type: multipart/mixed;boundary=in\n\n--in\n\n<pub-gruu uri="u"/>\n--in\nContent-Type: application/sdp\n\nv=0\n'
  printf -- '--in\nContent-Type: Message/CPIM\n\nFrom: <sip:a>\nNS: imdn <urn:x>\n\nContent-Type: message/imdn+xml\n\n<imdn>\n--in--\n--a"; b--\n'
} >"$work/multipart.txt"
expect 1 "" "$ztxml" check "$work/multipart.txt" "$work/notify.txt"
line="$(grep -n '<imdn>' "$work/multipart.txt" | cut -d: -f1)"
prints "$work/multipart.txt#1: ok, List
$work/multipart.txt#2: ok, Gruu
$work/multipart.txt:$((line - 11)):1: skipped: a part of the type \"application/sdp\"
$work/multipart.txt#3:$line:7: incomplete: <imdn> is not closed (opened at $line:1)
$work/notify.txt: ok, Reginfo
documents: 3 ok, 1 refused, 0 faulty"
# refused MESSAGE TEXT: how a capture, and a document, that is refused is told; line breaks as \n.
refused() { expect 1 "$1" "$ztxml" roundtrip - < <(printf "$2"); }
refused ':2:1: capture: not a header: "bad"' 'c: a/xml\nbad\n\n<a/>'
refused ':3:1: capture: the headers have no blank line' 'c: a/xml\n  b\n'
refused 'a second "content-type" header' 'c: a/xml\nContent-Type: a/xml\n\n<a/>'
refused 'the Content-Type is malformed' 'c: multipart/mixed;boundary="x\n\n--x'
refused 'the multipart body has no boundary' 'c: multipart/mixed\n\n--x'
refused 'the Content-Length is no number: "-1"' 'l: -1\n\n<a/>'
refused 'the body has 4 bytes' 'l: 99999999999999999999999\n\n<a/>'
refused 'the body is encoded ("br"): this encoding is not supported' 'c: a/xml\nContent-Encoding: br\n\nx'
expect 0 ':1:1: skipped: no XML body (but "application/sdp")' "$ztxml" roundtrip - < <(printf 'INVITE sip:a SIP/2.0\nc: application/sdp\n\nv=0\n')
expect 1 ':1:1: capture: no XML body' "$ztxml" get - / < <(printf 'BYE sip:a SIP/2.0\nl: 0\n\n')
refused ':4:2: wrong root: the root element is <gruu>, not <presence>; the Content-Type application/pidf+xml names the schema Presence' \
  'SIP/2.0 200 OK\nc: application/pidf+xml\n\n <gruu/>'
nested='<a/>'
for i in 1 2 3 4 5 6 7 8 9; do nested="c: multipart/mixed;boundary=b$i\\n\\n--b$i\\n$nested\\n--b$i--"; done
refused 'more than 8 bodies within each other' "$nested"

# ---- Failures -----------------------------------------------------------------------------------
expect 1 "$work/none.xml: file: no such file" "$ztxml" events "$work/none.xml"
expect 1 "(standard input):1:4: malformed: the end tag </b> where </a> is expected (opened at 1:1)" \
  "$ztxml" events - <<<'<a></b>'
expect 1 "(standard input):2:1: incomplete: <a> is not closed (opened at 1:1)" "$ztxml" namespaces - <<<'<a><b></b>'
expect 1 ":1:9: malformed: the value of the attribute c has no quotes" "$ztxml" show --json - <<<'<a><b c=1></a>'
prints '{"file":"(standard input)","error":{"kind":"malformed","message":"the value of the attribute c has no quotes","line":1,"column":9,"path":"/a/b"}}'
refused ':3:2: malformed: the end tag </b> where </c> is expected (opened at 2:3)' \
  '<a>\n\303\251 <c\n></b></a>'
refused ':2:4: malformed: the end tag </d> where </c> is expected' '<a b="1&2">\n<c></d></a>'
refused ':1:4: incomplete: <a> is not closed (opened at 1:1); a NUL byte ends the text' '<a>\0</a>'
refused ':1:4: incomplete: the text ends within the tag <b' '<a><b'
refused ':1:24: refused: the name of a start tag begins with a slash' \
  '<reginfo version="0">< /a><//a></reginfo>'
refused ':1:1: wrong root: the root element is <x:simservs>: its prefix is bound to no namespace' \
  '<x:simservs xmlns:x="urn:x"/>'
refused ":1:1: wrong root: the root element is <ic:isComposing>: the exact profile takes no prefix off" \
  '<ic:isComposing xmlns:ic="urn:ietf:params:xml:ns:im-iscomposing"/>'
expect 1 ':2:1: wrong root: no schema has the root element "a" (see: ztxml schemas)' \
  "$ztxml" roundtrip "$work/small.xml"
expect 1 'wrong root: the root element is <p:a>, not <pub-gruu> or <temp-gruu>' \
  "$ztxml" roundtrip --schema gruu "$work/small.xml"
expect 1 'wrong root: the root element is <a>, but documents of this kind are read in the exact profile only' \
  "$ztxml" show --standard --schema 27 - <<<'<a/>'
expect 2 "unknown schema 'nope'" "$ztxml" roundtrip --schema nope "$work/small.xml"
expect 2 "FILE is required" "$ztxml" events
expect 2 "A subcommand is required" "$ztxml" --log 2
expect 2 "no such command: shwo" "$ztxml" shwo "$work/small.xml"
expect 3 "is only read" "$ztxml" roundtrip --schema 27 "$work/small.xml"
expect 3 "(standard input): /reginfo/@state: missing value: the element cannot be written without it" \
  "$ztxml" roundtrip - <<<'<reginfo version="1"/>'
expect 3 "log 1 src/XMLReginfo" "$ztxml" roundtrip - --log 1 <<<'<reginfo version="1"/>'
printf '<pub-gruu uri="%040000d"/>' 0 >"$work/long.xml"
expect 3 "output cut at 32767 characters" "$ztxml" roundtrip "$work/long.xml"
[[ "$(wc -c <"$work/out")" -eq 32767 ]] || fail "long document: $(wc -c <"$work/out") bytes"
expect 3 "output cut" "$ztxml" roundtrip "$work/long.xml" "$documents/reginfo.xml"
[[ "$(wc -l <"$work/err")" -eq 1 ]] || fail "another one is called cut: $(cat "$work/err")"

# ---- Well-formedness and namespaces -------------------------------------------------------------
# judged STATUS LINE TEXT: how the line begins with which "check" begins for a document.
judged() {
  local got=0
  printf "$3" | "$ztxml" check - >"$work/out" || got=$?
  [[ "$got" == "$1" && "$(head -n 1 "$work/out")" == "(standard input)$2"* ]] ||
    fail "check of '$3': $got, $(cat "$work/out")"
}
# inside STATUS LINE TEXT: what it says when TEXT is inside a registration-information document, on
# its second line.
inside() { judged "$1" "$2" "<reginfo version=\"0\" state=\"full\">\\n$3</reginfo>"; }
# Read although XML forbids it.
inside 1 ':2:13: well-formedness: a raw "&" in the attribute value that begins at 2:6' '<x n="&amp; & c"/>'
inside 1 ':2:8: well-formedness: a raw "<" in the attribute value that begins at 2:6' '<x n="a<b"/>'
inside 1 ':2:6: well-formedness: a raw "&"' '<x>\303\244 & b</x>'
inside 1 ':2:4: well-formedness: the entity "nbsp" is not declared' '<x>&nbsp;</x>'
inside 1 ':2:4: well-formedness: "&#0" is no character that XML allows' '<x>&#0;</x>'
inside 1 ':2:4: well-formedness: the character "\x01", which XML does not allow' '<x>\001</x>'
inside 1 ':2:4: well-formedness: not UTF-8: the byte "\xe4"' '<x>\344</x>'
inside 1 ':2:10: well-formedness: a second attribute "n"' '<x n="1" n="2"/>'
inside 1 ':2:8: well-formedness: "--" inside a comment' '<!-- a -- b -->'
inside 1 ':2:4: well-formedness: "]]>" outside a CDATA section' '<x>]]></x>'
inside 1 ':2:28: namespaces: the prefix "q" is not bound' '<x xmlns:p="u" p:n="&gt;"><q:x/></x>'
inside 1 ':2:20: namespaces: the prefix "q" is not bound' '<p:x xmlns:p = "u" q:n="1"/>'
inside 1 ':2:1: namespaces: two attributes with one name in one namespace' \
  '<x xmlns:p="u" xmlns:q="u" p:n="" q:n=""/>'
inside 1 ':2:2: namespaces: the name ":x"' '<:x/>'
judged 1 ':2:1: well-formedness: something after the root element' '<reginfo version="0"></reginfo>\nx'
judged 1 ':1:1: well-formedness: text before the root element' 'a<reginfo version="0"></reginfo>'
judged 1 ':1:32: well-formedness: a NUL byte' '<reginfo version="0"></reginfo>\0'
inside 1 ':2:1: not supported: a CDATA section, which the exact profile reads wrongly' '<![CDATA[<y/>]]>'
# What the exact profile refuses although XML allows it, and what looks like that.
inside 1 ":2:9: refused: '>' in the value of the attribute n is read in the standard profile only" '<x n="a > b"/>'
inside 1 ":2:8: refused: '>' in a comment is read in the standard profile only" '<!-- a > b -->'
inside 1 ":2:10: malformed: '--' stands in a comment" '<!-- a -- > b -->'
inside 1 ':2:1: incomplete: the text ends within a comment' '<!-->'
inside 1 ':2:4: refused: CDATA sections are read in the standard profile only' '<x><![CDATA[<y>]]></x>'
inside 1 ':2:1: refused: a processing instruction inside of the root element is read in the standard' '<?x y?>'
inside 1 ':2:1: malformed: the XML declaration is not at the beginning' '<?xml y?>'
judged 1 ":1:5: refused: '>' in a processing instruction is read in the standard profile only" '<?x > ?><reginfo/>'
inside 1 ':2:4: refused: white space in an end tag is read in the standard profile only' '<x></x >'
inside 1 ":2:4: malformed: '>' is expected after the name in the end tag </x" '<x></x\n<y/>'
inside 1 ':2:4: incomplete: the text ends within a CDATA section' '<x><![CDATA[<y></x>'
judged 1 ':2:1: refused: document types are read in the standard profile only' '\n<!DOCTYPE a><a/>'
judged 1 ':2:13: refused: a document type declaration with an internal subset is not supported' \
  '\n<!DOCTYPE a [<!ENTITY b "c">]>\n<a>&b;</a>'
judged 1 ':1:1: encoding: UTF-16 is read in the standard profile only' '\377\376<\0a\0'
# Nothing is wrong: references, a byte order mark, what comes after the root, another encoding.
inside 0 ': ok, Reginfo' '<x n="&amp;&#228;"/>'
judged 0 ': ok, Reginfo' '\357\273\277<reginfo version="0"></reginfo><!-- a > b --><?x y?>'
latin='<?xml version="1.0" encoding="ISO-8859-1"?><reginfo version="0" state="full"><registration aor="\344" id="1" state="active"/></reginfo>'
judged 0 ': ok, Reginfo' "$latin"
judged 0 ': ok, CallWaitingIndication (XML does not allow the name "3gpp-ims"' '<3gpp-ims/>'

# written STATUS MESSAGE TEXT: how roundtrip ends and what it says.
written() { expect "$1" "$2" "$ztxml" roundtrip - < <(printf "$3"); }
aor() { echo "<reginfo version=\"0\" state=\"full\"><registration aor=\"$1\" id=\"1\" state=\"active\"/></reginfo>"; }
written 3 '(output):3:22: well-formedness: a raw "&" in the attribute value that begins at 3:20; references' "$(aor 'b&amp;c')"
written 3 '(output):3:21: well-formedness: not UTF-8: the byte "\xe4"' "$latin"
written 0 ':1:2: namespaces: the prefix "x" is not bound' '<x:reginfo version="0" state="full"/>'
service() { echo "<communication-diversion><$1:ruleset $2><$1:rule $3/></$1:ruleset></communication-diversion>"; }
# The prefixes of services are for the document around them to bind, unless their own did.
written 0 "" "$(service cp '' 'id="a"')"
judged 0 ': ok, CommunicationDiversion (the prefix "cp" is not bound: that is for the document around the service)' \
  "$(service cp '' 'id="a"')"
for prefix in cp p; do
  written 3 "(output):2:2: namespaces: the prefix \"$prefix\" is not bound; its declaration is not kept" \
    "$(service "$prefix" "xmlns:$prefix='urn:ietf:params:xml:ns:common-policy'" 'id="a"')"
done
written 3 '(output):3:10: well-formedness: unexpected "<" in the tag "<cp:rule </ss:communication-diversion>"; something required is missing: "<XML Module>: AddRuleElementToXml Rule ID mandatory"' \
  "$(service cp '' '')"

# ---- The standard profile -----------------------------------------------------------------------
for document in "$documents"/*.xml; do
  # One root has a name that XML does not allow, others are fragments with prefixes of another document.
  case "$document" in
    */call-waiting-indication.xml | */communication-waiting.xml | */outgoing-communication-barring.xml)
      expect 1 "$document:" "$ztxml" edit "$document"
      continue
      ;;
  esac
  expect 0 "" "$ztxml" edit "$document"
  cmp "$document" "$work/out" || fail "$document is edited without being asked"
  [[ "$document" == */wap-provisioningdoc.xml || "$document" == */volte-config-info.xml ]] && continue
  expect 0 "" "$ztxml" roundtrip --standard "$document"
  mv "$work/out" "$work/once.xml"
  expect 0 "" "$ztxml" diff --standard "$document" "$work/once.xml"
done
# document ENCODING: a document in it, with its mark where that is UTF-16.
body='<reginfo xmlns="urn:ietf:params:xml:ns:reginfo" version="0" state="full"><registration aor="sip:ä" id="1" state="active"><contact id="c" state="active" event="created" duration-registered="00"><uri><![CDATA[a&b]]></uri></contact><!-- > ä --></registration></reginfo>'
encoded() { printf '<?xml version="1.0" encoding="%s"?>\n%s\n' "$1" "$body" | iconv -f UTF-8 -t "$1"; }
encoded ISO-8859-1 >"$work/latin.xml"
encoded UTF-16 >"$work/utf16.xml"
{ printf '\357\273\277' && encoded UTF-8; } >"$work/mark.xml"
for form in latin utf16 mark; do
  expect 0 "" "$ztxml" show --standard "$work/$form.xml"
  prints 'reginfo : zt_reginfo
  @version = 0
  @state = full
  registration : zt_registration
    @aor = "sip:ä"
    @id = "1"
    @state = active
    contact : zt_ns_reginfo_contact
      @state = active
      @event = created
      @duration-registered = 0
      @id = "c"
      uri = "a&b"'
  expect 0 "" "$ztxml" edit "$work/$form.xml"
  cmp "$work/$form.xml" "$work/out" || fail "$form.xml is edited without being asked"
  # One value changes, in the document's encoding, and comes back.
  expect 0 "" "$ztxml" edit --set '/reginfo/registration/@aor=sip:€ü' "$work/$form.xml"
  mv "$work/out" "$work/changed.xml"
  expect 1 "" "$ztxml" diff --standard "$work/$form.xml" "$work/changed.xml"
  prints '~ /reginfo/registration[1]/@aor: "sip:ä" -> "sip:€ü"'
  expect 0 "" "$ztxml" edit --set '/reginfo/registration[1]/@aor=sip:ä' "$work/changed.xml"
  cmp "$work/$form.xml" "$work/out" || fail "$form.xml is not what it was"
done
expect 1 ":1:39: malformed: no namespace is bound to the prefix x" \
  "$ztxml" show --standard - <<<'<reginfo version="0" state="full"><a><x:b/></a></reginfo>'
expect 1 ":1:11: malformed: the attribute a has no value" "$ztxml" edit - <<<'<reginfo a></reginfo>'
expect 1 ":1:10: malformed: '>' is expected after the name in the end tag </reginfo" "$ztxml" edit - <<<'<reginfo></reginfo <a>'
expect 1 ":1:31: encoding: the encoding x-none is not supported" \
  "$ztxml" get - / <<<'<?xml version="1.0" encoding="x-none"?><a/>'
expect 1 "wrong root: the root element is <reginfo> in the namespace urn:x, not in urn:ietf:params:xml:ns:reginfo" \
  "$ztxml" show --standard - <<<'<reginfo xmlns="urn:x"/>'
expect 1 "wrong root: the root element is <reginfo>, not <pub-gruu> or <temp-gruu>" \
  "$ztxml" show --standard --schema gruu - <<<'<reginfo/>'
expect 1 'wrong root: no schema has the root element "a"' "$ztxml" show --standard - < <(printf '\377\376<\0a\0>\0')
expect 3 "(standard input): /reginfo/@state: missing value: the element cannot be written without it" \
  "$ztxml" roundtrip --standard - <<<'<reginfo version="1"/>'
# Neither long nor deep documents are cut when they are written.
{ printf '<resource-lists xmlns="urn:ietf:params:xml:ns:resource-lists">' && printf '<list>%.0s' {1..5000} &&
  printf '</list>%.0s' {1..5000} && printf '</resource-lists>'; } >"$work/deep.xml"
expect 0 "" "$ztxml" edit --set '/resource-lists/list/@name=a' "$work/deep.xml"
sed -e 's/<list>/<list name="a">/' "$work/deep.xml" | cmp - "$work/out" || fail "a deep document"
expect 0 "" "$ztxml" check --strict --lost "$work/deep.xml"
expect 2 "more than 200 objects within each other" "$ztxml" diff --standard "$work/deep.xml" "$work/deep.xml"

# gets STATUS TEXT PATH: what is in the services at PATH; TEXT is the value or the message.
services="$documents/simservs.xml"
gets() {
  if [[ "$1" == 0 ]]; then
    expect 0 "" "$ztxml" get "$services" "$3" && prints "$2"
  else
    expect "$1" "$2" "$ztxml" get "$services" "$3"
  fi
}
diversion=/simservs/communication-diversion
gets 0 true "$diversion/@active"
gets 0 25 "$diversion[1]/NoReplyTimer"
gets 0 25 "$diversion/NoReplyTimer/(text)"
gets 0 sip:second@example.com "$diversion/ruleset/rule/actions/forward-to/target"
gets 0 'conditions : zt_ns_common_policy_conditionsType
  busy : zt_empty_element_type' "$diversion/ruleset/rule[1]/conditions"
gets 1 "$diversion/ruleset/rule[2] is not there" "$diversion/ruleset/rule[2]/@id"
gets 1 "conditions/anonymous is not there" "$diversion/ruleset/rule/conditions/anonymous"
gets 2 "there is no element \"NoReplyTime\" in $diversion" "$diversion/NoReplyTime"
gets 2 'there is no attribute "ID" in' "$diversion/ruleset/rule/@ID"
gets 2 "has no words of its own" "$diversion/(words)"
gets 2 "nothing can be below" "$diversion/@active/x"
gets 2 "the root is /simservs" /reginfo
gets 2 'is no path: "@active[0]"' "$diversion/@active[0]"
gets 2 "is no path" "simservs"
LC_ALL=C sed -e 's/ x="[^"]*"/ xmlns:q="urn:q" q:x="1"/' "$work/conference.xml" >"$work/others.xml"
expect 0 "" "$ztxml" get "$work/others.xml" '/conference-info/conference-description/keywords/(words)[2]'
prints b
expect 2 "/conference-info/users/user: which of 2, [1] to [2]?" "$ztxml" get "$work/others.xml" /conference-info/users/user
expect 0 "" "$ztxml" get "$work/notify.txt" /reginfo/@version
expect 0 "" "$ztxml" get "$documents/resource-lists.xml" '/resource-lists/list[1]/display-name'
mv "$work/out" "$work/value"
expect 0 "" "$ztxml" edit --set '/resource-lists/list[1]/display-name=' "$documents/resource-lists.xml"
"$ztxml" get - '/resource-lists/list[1]/display-name/(text)' <"$work/out" | cmp - <(echo) || fail "an empty text"

# edits EXPECTED OPTION...: the lines of the services that an edit changes, as diff prints them.
edits() {
  expect 0 "" "$ztxml" edit "${@:2}" "$services"
  diff "$services" "$work/out" | grep '^[<>]' >"$work/lines"
  [[ "$(cat "$work/lines")" == "$1" ]] || fail "edit ${*:2}: $(cat "$work/lines")"
}
rule="$diversion/ruleset/rule"
edits '<     <NoReplyTimer>25</NoReplyTimer>
>     <NoReplyTimer>20</NoReplyTimer>' --set "$diversion/NoReplyTimer=20"
edits '<   <outgoing-communication-barring active="false"/>
>   <outgoing-communication-barring/>' --remove /simservs/outgoing-communication-barring/@active
edits '<   <communication-waiting active="true"/>' --remove /simservs/communication-waiting
edits '<         <cp:conditions><busy/></cp:conditions>
>         <cp:conditions><busy/><media>audio</media><media>a&lt;&amp;</media></cp:conditions>' \
  --set "$rule/conditions/media=audio" --set "$rule/conditions/media[2]=a<&"
expect 0 "" "$ztxml" edit --set '/wap-provisioningdoc/characteristic[1]/parm[1]/@value=x' "$documents/wap-provisioningdoc.xml"
diff "$documents/wap-provisioningdoc.xml" "$work/out" | grep -c '^[<>]' >"$work/lines"
[[ "$(cat "$work/lines")" == 2 ]] || fail "a schema that is only read: $(cat "$work/out")"
# In the order given: the first rule is another one once the old one has gone.
edits '<     <cp:ruleset>
<       <cp:rule id="busy">
<         <cp:conditions><busy/></cp:conditions>
<         <cp:actions>
<           <forward-to><target>sip:second@example.com</target></forward-to>
<         </cp:actions>
<       </cp:rule>
>     <cp:ruleset><cp:rule id="late"><cp:conditions><no-answer/></cp:conditions></cp:rule>' \
  --set "$rule[2]/@id=new" --remove "$rule[1]" --set "$rule[1]/conditions/no-answer" --set "$rule/@id=late"
# refuses STATUS MESSAGE OPTION...: and nothing is written.
refuses() {
  expect "$1" "$2" "$ztxml" edit "${@:3}" "$services"
  [[ ! -s "$work/out" ]] || fail "edit ${*:3} writes: $(cat "$work/out")"
}
refuses 2 '"4" is no number from 5 to 180' --set "$diversion/NoReplyTimer=4"
refuses 2 '"yes" is none of "false", "true"' --set "$diversion/@active=yes"
refuses 2 'there is no element "rules"' --set "$diversion/rules/@id=1"
refuses 2 "no such attribute is there, and none can be made" --set "$diversion/@x:y=1"
refuses 2 "rule[3] is not there, and cannot be made: entries before it are missing" --set "$rule[3]/@id=1"
refuses 2 "an element without a text of its own" --set "$rule/conditions/busy=1"
refuses 2 "lacks its =VALUE" --set "$rule/@id"
refuses 2 "no text that XML allows" --set "$rule/@id="$'\1'
refuses 2 "a document has a root" --remove /simservs
refuses 1 "conditions/anonymous is not there" --remove "$rule/conditions/anonymous"
refuses 3 "/ruleset/rule/@id: missing value: the element cannot be written without it" --set "$rule[2]/conditions"
expect 2 '"-1" is no number from 0 to 4294967295' "$ztxml" edit --set /reginfo/@version=-1 "$documents/reginfo.xml"
# Attributes of unknown names, words, captured messages.
expect 0 "" "$ztxml" edit --set '/conference-info/@q:x="' --remove '/conference-info/conference-description/keywords/(words)[1]' \
  --set '/conference-info/conference-description/keywords/(words)[2]=c' "$work/others.xml"
sed -e 's/q:x="1"/q:x="\&quot;"/' -e 's/a b</b c</' "$work/others.xml" | cmp - "$work/out" || fail "$(cat "$work/out")"
expect 2 '"b c" is not one word' "$ztxml" edit --set '/conference-info/conference-description/keywords/(words)[2]=b c' "$work/others.xml"
expect 0 "" "$ztxml" edit --remove '/conference-info/@q:x' "$work/others.xml"
sed -e 's/ q:x="1"//' "$work/others.xml" | cmp - "$work/out" || fail "$(cat "$work/out")"
expect 0 "" "$ztxml" edit --set /reginfo/@version=7 "$work/notify.txt"
tr -d '\n' <"$documents/reginfo.xml" | sed -e 's/ version="[0-9]*" / version="7" /' | cmp - "$work/out" || fail "$(cat "$work/out")"
expect 1 "3 XML bodies, of which only one can be edited" "$ztxml" edit "$work/multipart.txt"

# Losses, with their places in the file, and what a schema requires.
lossy='<reginfo xmlns="urn:ietf:params:xml:ns:reginfo" version="x" a="1">
<y/>t<registration aor="a" id="1" state="lost"><!-- ä --><z/></registration><registration/></reginfo>'
printf 'c: application/reginfo+xml\n\n%s' "$lossy" >"$work/lossy.txt"
losses="$work/lossy.txt:3:58: /reginfo/@version: value not kept: it is none of its type
$work/lossy.txt:3:61: /reginfo/@a: attribute not kept
$work/lossy.txt:4:1: /reginfo/y: element not kept
$work/lossy.txt:4:5: /reginfo/(text): text not kept
$work/lossy.txt:4:42: /reginfo/registration[1]/@state: value not kept: it is none of its type
$work/lossy.txt:4:58: /reginfo/registration[1]/z: element not kept
documents: 0 ok, 0 refused, 0 faulty, 1 with losses"
for profile in "" --standard; do
  expect 1 "" "$ztxml" check --lost $profile "$work/lossy.txt"
  prints "$losses"
done
expect 1 "" "$ztxml" check --strict --quiet "$work/lossy.txt" "$work/utf16.xml"
prints "$work/lossy.txt:3:1: required: /reginfo/@state is missing
$work/lossy.txt:3:58: value: /reginfo/@version has a value that is none of its type
$work/lossy.txt:4:42: value: /reginfo/registration[1]/@state has a value that is none of its type
$work/lossy.txt:4:77: required: /reginfo/registration[2]/@aor is missing
$work/lossy.txt:4:77: required: /reginfo/registration[2]/@id is missing
$work/lossy.txt:4:77: required: /reginfo/registration[2]/@state is missing
documents: 1 ok, 0 refused, 1 faulty"
expect 0 "" "$ztxml" check --lost --strict "$work/utf16.xml"
prints "$work/utf16.xml: ok, Reginfo
documents: 1 ok, 0 refused, 0 faulty, 0 with losses"
expect 1 "" "$ztxml" check --strict - <<<'<reginfo a="1" a="2"/>'
grep -qF ':1:16: malformed: the element has the attribute a twice (first at 1:10)' "$work/out" || fail "$(cat "$work/out")"

# ---- Notifications ------------------------------------------------------------------------------
# conference VERSION STATE [CONTENT]: a notification of a conference in a file of that version.
conference() {
  echo "<conference-info xmlns='urn:ietf:params:xml:ns:conference-info' entity='sip:c@example.com' version='$1'" \
    "state='$2'>${3-}</conference-info>" >"$work/c$1.xml"
}
user() { echo "<user entity='sip:$1@example.com' state='$2'>${3-}</user>"; }
conference 1 full "<users>$(user ada full)$(user bob full)</users>"
conference 2 partial "<users state='partial'>$(user ada partial '<display-text>Ada</display-text>')$(
  user bob deleted)$(user 'e&#10;ve' full)</users>"
conference 4 partial "<users state='partial'>$(user zoe full)</users>"
conference 5 deleted
{ printf 'NOTIFY sip:a@example.com SIP/2.0\r\nContent-Type: application/conference-info+xml\r\n\r\n' &&
  cat "$work/c1.xml"; } >"$work/c1.txt"
expect 1 "" "$ztxml" merge --events "$work/c1.txt" "$work/c2.xml" "$work/c2.xml" "$work/c4.xml" "$work/c1.xml" "$work/c5.xml"
prints "$work/c1.txt: applied
  added /conference-info/users/user[sip:ada@example.com]
  added /conference-info/users/user[sip:bob@example.com]
$work/c2.xml: applied
  changed /conference-info/users/user[sip:ada@example.com]
  removed /conference-info/users/user[sip:bob@example.com]
  added /conference-info/users/user[sip:e\\nve@example.com]
$work/c2.xml: ignored: its version was there already
$work/c4.xml: refresh: notifications before it were missed
$work/c1.xml: ignored: it is older than the state
$work/c5.xml: applied; refresh: what it tells of is no more
  removed /conference-info/users/user[sip:ada@example.com]
  removed /conference-info/users/user[sip:e\\nve@example.com]"
state='<?xml version="1.0" encoding="UTF-8"?>
<conference-info xmlns="urn:ietf:params:xml:ns:conference-info" state="full" version="2" entity="sip:c@example.com">
<users>
<user state="full" entity="sip:ada@example.com">
<display-text>Ada</display-text></user>
<user state="full" entity="sip:e&#10;ve@example.com"/></users></conference-info>'
expect 0 "ztxml: $work/c2.xml: ignored: its version was there already" "$ztxml" merge "$work/c1.txt" - "$work/c2.xml" <"$work/c2.xml"
prints "$state"
# A registration's partial notification is taken after a gap; its contacts come whole.
registration() { echo "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='$1' state='$2'><registration aor='sip:a' id='r' state='active'><contact id='$3' state='active' event='$4'><uri>sip:$3</uri></contact></registration></reginfo>"; }
registration 0 full c1 registered >"$work/r0.xml"
registration 2 partial c2 created >"$work/r2.xml"
expect 1 "" "$ztxml" merge --events "$work/r0.xml" "$work/r2.xml"
prints "$work/r0.xml: applied
  added /reginfo/registration[r]
$work/r2.xml: applied; refresh: notifications before it were missed
  added /reginfo/registration[r]/contact[c2]"
# What is known is written although something is missing; where nothing is known, nothing is.
echo '<conference-info>' >"$work/broken.xml"
for missing in "c4.xml: refresh: notifications before it were missed" "broken.xml:" "r2.xml:" "nothing.xml: file"; do
  expect 1 "$work/$missing" "$ztxml" merge "$work/c1.txt" "$work/${missing%%:*}" "$work/c2.xml"
  prints "$state"
done
expect 1 "$work/c2.xml: refresh: it is partial, and there was no full one" "$ztxml" merge "$work/c2.xml"
prints ""
expect 2 "documents of the schema Presence cannot be merged" "$ztxml" merge "$documents/presence.xml" "$work/c1.xml"
expect 3 "/conference-info/@entity: missing value" "$ztxml" merge - <<<"$(sed -e "s/entity='[^']*' version/version/" "$work/c1.xml")"
# Of the message of a resource list the list is taken, and not what else is in it.
list() { echo "<list xmlns='urn:ietf:params:xml:ns:rlmi' uri='sip:l@example.com' version='$1' fullState='$2'><resource uri='sip:$3'/></list>"; }
{ printf 'Content-Type: multipart/related; boundary=b\n\n--b\nContent-Type: application/rlmi+xml\n\n' &&
  list 0 true x && printf -- '--b\nContent-Type: application/pidf+xml\n\n' && cat "$documents/presence.xml" &&
  printf -- '\n--b\nContent-Type: application/x+xml\n\n<x/>\n--b--\n'; } >"$work/l0.txt"
list 1 false y >"$work/l1.xml"
expect 0 'l0.txt#2: skipped: of the type "application/pidf+xml"' "$ztxml" merge --events "$work/l0.txt" "$work/l1.xml"
prints "$work/l0.txt#1: applied
  added /list/resource[sip:x]
$work/l1.xml: applied
  added /list/resource[sip:y]"

# ---- Examples -----------------------------------------------------------------------------------
# reads DOCUMENT COMMAND...: expects it to succeed with the document as its input.
reads() { expect 0 "" "${@:2}" <"$documents/$1"; }
# short LINES PROGRAM: without comments, #include and empty lines it has at most so many.
short() {
  local lines
  lines="$(grep -cvE '^[[:space:]]*(//.*|#include .*)?$' "$documents/../$2.cpp")"
  [[ "$lines" -le "$1" ]] || fail "$2.cpp has $lines lines, more than $1"
}
short 24 registered_contacts
short 22 switch_diversion
short 42 build_conference
short 20 presence_capabilities
# As a device compiles them, and with exceptions and type information.
for folder in ${examples:+"$examples" "$examples/plain"}; do
  reads reginfo-gruu.xml "$folder/registered_contacts"
  prints 'sip:grace@example.org
  sip:grace@ue.example.org, expires in 555 s
    public GRUU sip:grace@example.org;gr=urn:uuid:3d2b0c5e-8a44-4f0a-9c3f-6b1f0d7e2a90
    temporary GRUU sip:tmp.4Hq7Zk0w@example.org;gr
  sip:grace@laptop.example.org, expires in 555 s
    public GRUU sip:grace@example.org;gr=laptop-1'
  reads presence-services.xml "$folder/presence_capabilities"
  prints 'call: audio video full-duplex
chat:'
  for program in registered_contacts presence_capabilities "switch_diversion sip:a@example.com"; do
    read -ra command <<<"$program"
    expect 1 "1:1: incomplete: the text has no element" "$folder/${command[0]}" "${command[@]:1}" </dev/null
    expect 1 "wrong root: the root element is <simservs>" \
      "$folder/${command[0]}" "${command[@]:1}" <"$documents/simservs.xml"
  done
  # The body to put back is the old one with the changes and nothing else.
  diversion="$documents/communication-diversion.xml"
  reads communication-diversion.xml "$folder/switch_diversion" "sip:new@example.com?a=1&b"
  sed -e 's|<target>.*</target>|<target>sip:new@example.com?a=1\&amp;b</target>|' "$diversion" |
    cmp - "$work/out" || fail "switch_diversion: $(cat "$work/out")"
  mv "$work/out" "$work/put.xml"
  expect 1 "nothing to change" "$folder/switch_diversion" "sip:new@example.com?a=1&b" <"$work/put.xml"
  expect 1 "usage" "$folder/switch_diversion" <"$diversion"
  expect 0 "" "$folder/build_conference"
  mv "$work/out" "$work/built.xml"
  expect 0 "" "$ztxml" check --standard --strict --lost "$work/built.xml"
  expect 0 "" "$ztxml" get "$work/built.xml" '/conference-info/users/user[2]/endpoint/status'
  prints on-hold
  expect 0 "" "$ztxml" get "$work/built.xml" '/conference-info/users/user[3]/display-text'
  prints Linus
done

finish cli
