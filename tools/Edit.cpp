// ztxml edit: a document with some of its values changed, in place.
#include <string>

#include "Colour.h"
#include "Commands.h"
#include "Output.h"
#include "Path.h"
#include "Read.h"
#include "Text.h"
#include "text/ZtEncoding.h"

namespace {

// What a row takes instead of a value that is none of its type.
std::string WhatFits(const ZtField& row) {
  if (row.value == ZtValue::kEnum) {
    const ZtEnumTable& values = *row.detail.values;
    std::string list;
    for (unsigned i = 0; i < values.count; ++i) {
      list += (i ? ", " : "") + Quote(values.slots[i].Piece().text);
    }
    return "none of " + list;
  }
  const bool is32 = row.value == ZtValue::kNumber;
  const ZtRange* range = is32 ? row.detail.range : nullptr;
  const unsigned long long most = is32 ? ~0U : ~0ULL;
  return "no number from " + std::to_string(range ? range->least : 0) + " to " +
         std::to_string(range ? range->most : most);
}

class Editor {
 public:
  Editor(const Document& document, Tree& tree) : m_Document(document), m_Tree(tree) {}

  /// kDone, or the exit status after a message.
  int Apply(const Change& change) {
    const bool isText = ZtIsXmlText({change.value.data(), change.value.size()});
    if (!isText) return Wrong(change, "the value is no text that XML allows");
    PathFinder finder(*m_Tree.table, *m_Tree.root, change.kind == Change::Kind::kSet);
    Target target;
    const Finding found = finder.Find(change.path, target);
    if (found == Finding::kWrong) return Wrong(change, finder.Why());
    if (change.kind == Change::Kind::kSet) return Set(change, target);
    if (found == Finding::kFound && target.IsThere()) return Remove(change, target);
    Complain(m_Document.name, finder.Why());
    return kCannotRead;
  }

 private:
  int Wrong(const Change& change, const std::string& why) const {
    const bool sets = change.kind == Change::Kind::kSet;
    Complain(m_Document.name,
             std::string(sets ? "--set " : "--remove ") + Escape(change.path) + ": " + why);
    return kUsage;
  }

  int Set(const Change& change, Target& target) {
    if (target.own) return SetElement(change, target);
    if (!change.hasValue) return Wrong(change, "lacks its =VALUE");
    if (target.IsScalar()) return SetScalar(change, target);
    if (target.row->place != ZtPlace::kOtherAttributes) return SetEntry(change, target);
    if (!target.pair) return Wrong(change, "no such attribute is there, and none can be made");
    return target.pair->setValue(change.value.c_str()) ? kDone : NoMemory(change);
  }

  int SetScalar(const Change& change, const Target& target) {
    const std::string& value = change.value;
    const ZtField& row = *target.row;
    const ZtStated stated = ZtParse(row, {value.c_str(), value.size()});
    if (!stated.stated) return Wrong(change, Quote(value) + " is " + WhatFits(row));
    return ZtKeep(*target.parent, row, stated, nullptr) ? kDone : NoMemory(change);
  }

  int SetElement(const Change& change, Target& target) {
    const bool hasText = OwnTextOf(target).row;
    if (!change.value.empty() && !hasText) {
      return Wrong(change, "that is an element without a text of its own");
    }
    if (target.cannotMake) return Wrong(change, target.cannotMake);
    if (!target.object && !MakeElement(target)) return NoMemory(change);
    return hasText && change.hasValue ? SetScalar(change, OwnTextOf(target)) : int{kDone};
  }

  int SetEntry(const Change& change, const Target& target) {
    const bool isWord = target.row->place == ZtPlace::kOwnWords;
    const ZtPiece text = ZtTrimmed({change.value.c_str(), change.value.size()});
    const std::string value(text.text, text.size);
    if (isWord && (value.empty() || value.find_first_of(" \t\r\n") != std::string::npos)) {
      return Wrong(change, Quote(change.value) + " is not one word");
    }
    if (target.object) {
      return zt_string::From(target.object)->setValue(value.c_str()) ? kDone : NoMemory(change);
    }
    if (target.cannotMake) return Wrong(change, target.cannotMake);
    return AddText(target, value) ? kDone : NoMemory(change);
  }

  int Remove(const Change& change, const Target& target) {
    if (!target.row) return Wrong(change, "a document has a root");
    XMLElement& parent = *target.parent;
    const ZtField& row = *target.row;
    if (target.IsScalar()) {
      ZtClear(parent, row);
    } else if (target.pair) {
      XMLAttribute* const attribute = target.pair;
      (parent.*row.member.attributes).Get()->Remove(attribute);
      ZtRelease(attribute);
    } else if (ZtIsSingle(row)) {
      (parent.*row.member.child).Set(nullptr);
    } else {
      (parent.*row.member.children).Get()->Remove(target.object);
      XMLFactory::DeleteElement(target.object);
    }
    return kDone;
  }

  int NoMemory(const Change& change) const {
    Complain(m_Document.name, Escape(change.path) + ": out of memory");
    return kCannotWrite;
  }

  const Document& m_Document;
  Tree& m_Tree;
};

}  // namespace

int Edit(const std::string& path, const std::vector<Change>& changes, const Reading& reading) {
  Document document;
  if (!ReadOneDocument(path, true, "edited", document)) return kCannotRead;
  Reading keeping = reading;
  keeping.keepsSource = true;
  Tree tree;
  Failure failure;
  if (!ReadTree(document, keeping, tree, failure)) return Refuse(document, failure);
  Editor editor(document, tree);
  for (const Change& change : changes) {
    const int status = editor.Apply(change);
    if (status != kDone) return status;
  }
  std::string text;
  if (!tree.Update(text, failure)) return Refuse(document.name, failure, kCannotWrite);
  PrintText(text);
  return kDone;
}
