#include "drivers/ZtStandardDocument.h"

#include <algorithm>

#include "base/ZtLog.h"
#include "binding/ZtStandardReader.h"
#include "binding/ZtStandardWriter.h"
#include "binding/ZtUpdater.h"
#include "drivers/ZtExplain.h"
#include "model/ZtOwnership.h"
#include "text/ZtPen.h"
#include "ztxml/ZtDocument.h"

using ztxml::Code;
using ztxml::Stage;

// ---- Reading ------------------------------------------------------------------------------------

namespace {

// Logs what is wrong with a document, and where, and says it to who asked.
class Refusal {
 public:
  Refusal(const ZtFailedText& failed, ztxml::Error* error) : m_Failed(failed), m_pError(error) {}

  void NoMemory(Stage stage) const {
    ZtLog(kZtLogError, Source())("<XML Module>: %s: out of memory", m_Failed.document.unMarshaller);
    if (m_pError) ZtExplainNoMemory(*m_pError, stage);
  }
  void Encoding(ZtEncodingFault fault, std::size_t at) const {
    Log(ZtFaultText(fault), at);
    if (fault == ZtEncodingFault::kUnknown) LogEncoding(at);
    if (m_pError) ZtExplainEncoding(*m_pError, m_Failed, fault, at);
  }
  // The text is that of the document, as it was before it was read.
  void Xml(const ZtXmlError& fault) const {
    Log(ZtFaultText(fault.fault), fault.at);
    if (m_pError) ZtExplainXml(*m_pError, m_Failed, fault);
  }
  void Root(std::size_t at, ZtPiece uri) const {
    Log("the root element is not one of this document", at);
    if (m_pError) ZtExplainRoot(*m_pError, m_Failed, uri);
  }
  bool Explains() const { return m_pError != nullptr; }

 private:
  const char* Source() const { return m_Failed.document.source; }
  void Log(const char* why, std::size_t at) const {
    const ZtTextPlace place = ZtPlaceFinder(m_Failed.original, m_Failed.form).Find(at);
    ZtLog(kZtLogError, Source())("<XML Module>: line %lu, column %lu: %s", place.line, place.column,
                                 why);
  }
  void LogEncoding(std::size_t at) const {
    char name[40] = {};
    const ZtPiece named = ZtEncodingNameAt(m_Failed, at);
    if (named.size) std::memcpy(name, named.text, std::min(named.size, sizeof(name) - 1));
    ZtLog(kZtLogError, Source())("<XML Module>: the encoding %s is not supported", name);
  }

  const ZtFailedText& m_Failed;
  ztxml::Error* m_pError;
};

// Has the tree remember its document; false without memory.
bool Keep(ZtPiece text, const ZtFailedText& from, ZtArena& arena, ZtSourceText*& source) {
  source = new ZtSourceText;
  if (!source) return false;
  arena.Host(source);
  source->document = &from.document;
  source->form = from.form;
  return source->Keep(text);
}

}  // namespace

XMLElement* ZtReadStandard(const ZtDocument& document, const ZtSettings& settings, ZtPiece text,
                           ztxml::Error* error, bool makes, const ZtElementType* type) {
  ZtFailedText failed = {document, text, {}, nullptr, true, type};
  const Refusal refusal(failed, error);
  std::size_t at = 0;
  ZtEncodingFault fault = ZtFindForm(text, failed.form, at);
  ZtArena arena;
  char* copy = nullptr;
  const std::size_t size = fault == ZtEncodingFault::kNone ? ZtDecodedSize(text, failed.form) : 0;
  if (fault == ZtEncodingFault::kNone) {
    copy = arena.Reserve(size);
    if (!copy) {
      if (makes) refusal.NoMemory(Stage::kDecoding);
      return nullptr;
    }
    fault = ZtDecode(text, failed.form, copy, at);
  }
  if (fault != ZtEncodingFault::kNone) {
    if (makes) refusal.Encoding(fault, at);
    return nullptr;
  }
  ZtReadOptions options;
  options.form = failed.form;
  options.makes = makes;
  options.root = type;
  options.lost = settings.lost;
  options.context = settings.lostContext;
  options.original = text;
  if (makes && settings.keepsSource && !Keep({copy, size}, failed, arena, options.source)) {
    refusal.NoMemory(Stage::kBinding);
    return nullptr;
  }
  ZtStandardReader reader(document, arena, options);
  XMLElement* const root = reader.Read(copy, size);
  if (root && options.source) ZtOwnership::SetSource(*root, options.source);
  if (root || !makes) return root;
  // What was read is cut up. It is decoded once more where the text is to be looked at.
  const ZtXmlReader& xml = reader.Xml();
  const bool isRoot = reader.HasOtherRoot();
  const ZtPiece uri = isRoot && xml.Name().space != kZtNoSpace ? xml.Scope().Uri(xml.Name().space)
                                                               : ZtPiece(nullptr);
  char name[160];
  const std::size_t named = uri.size < sizeof(name) ? uri.size : sizeof(name) - 1;
  if (named) std::memcpy(name, uri.text, named);
  if (refusal.Explains()) {
    ZtDecode(text, failed.form, copy, at);
    failed.text = {copy, size};
  }
  if (xml.Error().fault != ZtXmlFault::kNone && xml.Error().fault != ZtXmlFault::kOutOfMemory) {
    refusal.Xml(xml.Error());
  } else if (isRoot) {
    refusal.Root(xml.From(), {name, named});
  } else {
    refusal.NoMemory(Stage::kBinding);
  }
  return nullptr;
}

bool ZtUnMarshaller::IsStandard() const {
  return m_pContext && m_pContext->profile() == XML_PROFILE_STANDARD && Document().roots.size();
}

XMLElement* ZtUnMarshaller::ReadStandard(ZtPiece text) const {
  return ZtReadStandard(Document(), m_pContext->settings(), text, m_pError);
}

void ZtUnMarshaller::TellLosses(ZtPiece text) const {
  if (m_pContext && m_pContext->settings().lost && Document().roots.size())
    ZtReadStandard(Document(), m_pContext->settings(), text, nullptr, false);
}

// ---- Writing ------------------------------------------------------------------------------------

namespace {

// Logs why nothing was written, and says it to who asked; false. `why` null: memory is lacking.
bool Refuse(const ZtDocument& document, ztxml::Error* error, Stage stage, Code code,
            const char* why, const char* path = "") {
  ZtLog(kZtLogError, document.source)("<XML Module>: %s cannot be written: %s",
                                      *path ? path : "the document", why ? why : "out of memory");
  if (!error) return false;
  if (!why) {
    ZtExplainNoMemory(*error, stage);
  } else if (why == kZtMissing) {
    ZtExplainMissing(*error, stage, path);
  } else {
    ZtExplain(*error, code, stage, why, path);
  }
  return false;
}

}  // namespace

bool ZtWriteStandard(const ZtDocument& document, const XMLElement& root, ZtBuffer& to,
                     ztxml::Error* error) {
  constexpr Stage kStage = Stage::kWriting;
  const char* const className = root.ClassName();
  const ZtRoot* known = ZtRootOf(document, className);
  const ZtElementType* type = known ? known->type : ZtFragmentOf(document, className);
  const ZtNameId name = known ? known->name : type ? type->tag : ZtNameId(XML_STR_ZT_NULL);
  if (!type || name.IsNone()) return Refuse(document, error, kStage, Code::kWrongRoot, kZtNoRoot);
  ZtStandardWriter writer(to);
  const bool written = writer.WriteDocument(document, root, *type, name);
  if (to.IsTooLong()) return Refuse(document, error, kStage, Code::kTooLong, kZtTooLong);
  if (written && !to.Failed()) return true;
  return Refuse(document, error, kStage, Code::kRefused, writer.Why(), writer.Path());
}

char* ZtUpdateStandard(const ZtDocument& document, const ZtSettings& settings, XMLElement& root,
                       std::size_t& size, ztxml::Error* error) {
  constexpr Stage kStage = Stage::kUpdating;
  size = 0;
  const ZtSourceText* source =
      settings.profile == XML_PROFILE_STANDARD ? ZtOwnership::SourceOf(root) : nullptr;
  if (!source || !ZtIsOneDocument(*source->document, document)) {
    Refuse(document, error, kStage, Code::kRefused,
           settings.profile != XML_PROFILE_STANDARD
               ? "only the standard profile can update a document"
           : !source ? "what the root was read from was not kept"
                     : "the root was read by another schema");
    return nullptr;
  }
  ZtBuffer text(settings.mostText);
  text.Reserve(source->Text().size + 256);  // mostly little is changed
  ZtUpdater updater(*source, text);
  const bool written = updater.Write(root);
  if (text.IsTooLong()) {
    Refuse(document, error, kStage, Code::kTooLong, kZtTooLong);
    return nullptr;
  }
  const std::size_t mark = source->form.mark.size;
  if (written && source->form.encoding == ZtEncoding::kUtf8 && !mark) {
    size = text.Size();
    char* const taken = text.Take();
    if (!taken) Refuse(document, error, kStage, Code::kNoMemory, nullptr);
    return taken;
  }
  const std::size_t bytes = mark + ZtEncodedSize(text.Piece(), source->form.encoding);
  // In UTF-16 the end is marked by a whole character.
  auto* const encoded = written ? static_cast<char*>(__malloc(bytes + 2)) : nullptr;
  if (!encoded) {
    Refuse(document, error, kStage, Code::kRefused, updater.Why(), updater.Path());
    return nullptr;
  }
  if (mark) std::memcpy(encoded, source->form.mark.text, mark);
  char* const end = ZtEncode(text.Piece(), source->form.encoding, encoded + mark);
  end[0] = end[1] = '\0';
  size = bytes;
  return encoded;
}

bool ZtMarshaller::IsStandard() const {
  return m_pContext && m_pContext->profile() == XML_PROFILE_STANDARD;
}

char* ZtMarshaller::MarshallStandard(XMLElement& root) {
  __free(m_pXml);
  ZtBuffer text(m_pContext->settings().mostText);
  m_pXml = nullptr;
  text.Reserve(m_iRoom);
  if (!ZtWriteStandard(Document(), root, text, m_pError)) return nullptr;
  m_iRoom = ZtRoomAfter(text.Size());
  m_pXml = text.Take();
  if (!m_pXml) Refuse(Document(), m_pError, Stage::kWriting, Code::kNoMemory, nullptr);
  return m_pXml;
}

char* ZtMarshaller::Update(XMLElement* root, std::size_t* size) {
  std::size_t written = 0;
  if (m_pError) *m_pError = ztxml::Error();
  if (root) {
    static const ZtSettings kExact;
    __free(m_pXml);
    m_pXml = ZtUpdateStandard(Document(), m_pContext ? m_pContext->settings() : kExact, *root,
                              written, m_pError);
  } else if (m_pError) {
    ZtExplain(*m_pError, Code::kRefused, Stage::kUpdating, "there is no tree");
  }
  if (size) *size = written;
  return root ? m_pXml : nullptr;
}
