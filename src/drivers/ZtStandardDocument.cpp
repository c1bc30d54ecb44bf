// The drivers in the standard profile.
#include "base/ZtLog.h"
#include "binding/ZtStandardReader.h"
#include "binding/ZtStandardWriter.h"
#include "binding/ZtUpdater.h"
#include "model/ZtOwnership.h"
#include "ztxml/ZtDocument.h"

// ---- Unmarshaller -------------------------------------------------------------------------------

namespace {

// Logs what is wrong with a document, and where.
class Refusal {
 public:
  Refusal(const ZtDocument& document, ZtPiece text, const ZtTextForm& form)
      : m_Document(document), m_Text(text), m_Form(form) {}

  void Log(const char* why, std::size_t at) const {
    const ZtTextPlace place = ZtPlaceFinder(m_Text, m_Form).Find(at);
    ZtLog(kZtLogError, m_Document.source)("<XML Module>: line %lu, column %lu: %s", place.line,
                                          place.column, why);
  }
  // The name in the declaration stands in single bytes: a longer one is cut.
  void LogEncoding(std::size_t at) const {
    char name[40] = {};
    const std::size_t from = m_Form.mark.size + at;
    for (std::size_t i = 0; i + 1 < sizeof(name) && from + i < m_Text.size; ++i) {
      const char c = m_Text.text[from + i];
      if (c == '"' || c == '\'' || c <= ' ') break;
      name[i] = c;
    }
    ZtLog(kZtLogError, m_Document.source)("<XML Module>: the encoding %s is not supported", name);
  }

 private:
  const ZtDocument& m_Document;
  ZtPiece m_Text;
  const ZtTextForm& m_Form;
};

void LogNoMemory(const ZtDocument& document) {
  ZtLog(kZtLogError, document.source)("<XML Module>: %s: out of memory", document.unMarshaller);
}

}  // namespace

bool ZtUnMarshaller::IsStandard() const {
  return m_pContext && m_pContext->profile() == XML_PROFILE_STANDARD && Document().roots.size();
}

void ZtUnMarshaller::TellLosses(ZtPiece text) const {
  if (m_pContext && m_pContext->settings().lost && Document().roots.size())
    ReadStandard(text, false);
}

// With `makes` false only losses are told.
XMLElement* ZtUnMarshaller::ReadStandard(ZtPiece text, bool makes) const {
  const ZtDocument& document = Document();
  const ZtSettings& settings = m_pContext->settings();
  ZtReadOptions options;
  std::size_t at = 0;
  ZtEncodingFault fault = ZtFindForm(text, options.form, at);
  const Refusal refusal(document, text, options.form);
  ZtArena arena;
  char* copy = nullptr;
  const std::size_t size = fault == ZtEncodingFault::kNone ? ZtDecodedSize(text, options.form) : 0;
  if (fault == ZtEncodingFault::kNone) {
    copy = arena.Reserve(size);
    if (!copy) {
      if (makes) LogNoMemory(document);
      return nullptr;
    }
    fault = ZtDecode(text, options.form, copy, at);
  }
  if (fault != ZtEncodingFault::kNone) {
    if (makes) refusal.Log(ZtFaultText(fault), at);
    if (makes && fault == ZtEncodingFault::kUnknown) refusal.LogEncoding(at);
    return nullptr;
  }
  if (makes && settings.keepsSource) {
    options.source = new ZtSourceText;
    if (options.source) arena.Host(options.source);
    if (!options.source || !options.source->Keep({copy, size})) {
      LogNoMemory(document);
      return nullptr;
    }
    options.source->document = &document;
    options.source->form = options.form;
  }
  options.makes = makes;
  options.lost = settings.lost;
  options.context = settings.lostContext;
  options.original = text;
  ZtStandardReader reader(document, arena, options);
  XMLElement* const root = reader.Read(copy, size);
  if (root && options.source) ZtOwnership::SetSource(*root, options.source);
  if (root || !makes) return root;
  const ZtXmlError& error = reader.Xml().Error();
  if (error.fault != ZtXmlFault::kNone && error.fault != ZtXmlFault::kOutOfMemory) {
    refusal.Log(ZtFaultText(error.fault), error.at);
  } else if (reader.HasOtherRoot()) {
    refusal.Log("the root element is not one of this document", reader.Xml().From());
  } else {
    LogNoMemory(document);
  }
  return nullptr;
}

// ---- Marshaller ---------------------------------------------------------------------------------

bool ZtMarshaller::IsStandard() const {
  return m_pContext && m_pContext->profile() == XML_PROFILE_STANDARD;
}

// Logs why nothing was written; false. `why` null: memory is lacking.
bool ZtMarshaller::Refuse(const char* why, const char* path) const {
  ZtLog(kZtLogError, Document().source)("<XML Module>: %s cannot be written: %s",
                                        *path ? path : "the document", why ? why : "out of memory");
  return false;
}

char* ZtMarshaller::MarshallStandard(XMLElement& root) {
  const ZtDocument& document = Document();
  __free(m_pXml);
  m_pXml = nullptr;
  const char* const className = root.ClassName();
  const ZtRoot* known = ZtRootOf(document, className);
  const ZtElementType* type = known ? known->type : ZtFragmentOf(document, className);
  const ZtNameId name = known ? known->name : type ? type->tag : ZtNameId(XML_STR_ZT_NULL);
  if (!type || name.IsNone()) {
    Refuse("the root is of no class that this document begins with", "");
    return nullptr;
  }
  ZtBuffer text(m_pContext->settings().mostText);
  ZtStandardWriter writer(text);
  const bool written = writer.WriteDocument(document, root, *type, name);
  if (text.IsTooLong()) {
    Refuse("the text is longer than the limit", "");
  } else if (!written || !(m_pXml = text.Take())) {
    Refuse(writer.Why(), writer.Path());
  }
  return m_pXml;
}

char* ZtMarshaller::Update(XMLElement* root, std::size_t* size) {
  if (size) *size = 0;
  if (!root) return nullptr;
  __free(m_pXml);
  m_pXml = nullptr;
  const ZtSourceText* source = IsStandard() ? ZtOwnership::SourceOf(*root) : nullptr;
  if (!source || source->document != &Document()) {
    Refuse(!IsStandard() ? "only the standard profile can update a document"
           : !source     ? "what the root was read from was not kept"
                         : "the root was read by another schema",
           "");
    return nullptr;
  }
  ZtBuffer text(m_pContext->settings().mostText);
  text.Reserve(source->Text().size + 256);  // mostly little is changed
  ZtUpdater updater(*source, text);
  const bool written = updater.Write(*root);
  if (text.IsTooLong()) {
    Refuse("the text is longer than the limit", "");
    return nullptr;
  }
  const std::size_t mark = source->form.mark.size;
  if (written && source->form.encoding == ZtEncoding::kUtf8 && !mark) {
    const std::size_t whole = text.Size();
    m_pXml = text.Take();
    if (!m_pXml) {
      Refuse(nullptr, "");
    } else if (size) {
      *size = whole;
    }
    return m_pXml;
  }
  const std::size_t bytes = mark + ZtEncodedSize(text.Piece(), source->form.encoding);
  // In UTF-16 the end is marked by a whole character.
  auto* const encoded = written ? static_cast<char*>(__malloc(bytes + 2)) : nullptr;
  if (!encoded) {
    Refuse(updater.Why(), updater.Path());
    return nullptr;
  }
  if (mark) std::memcpy(encoded, source->form.mark.text, mark);
  char* const end = ZtEncode(text.Piece(), source->form.encoding, encoded + mark);
  end[0] = end[1] = '\0';
  if (size) *size = bytes;
  m_pXml = encoded;
  return m_pXml;
}
