// ztxml edit: a document with some of its values changed, in place.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

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
      row.Attributes(parent).Get()->Remove(attribute);
      ZtRelease(attribute);
    } else if (ZtIsSingle(row)) {
      row.Child(parent).Set(nullptr);
    } else {
      row.Children(parent).Get()->Remove(target.object);
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

// Whether the file has the document and nothing else, so that it can be replaced.
bool IsWholeFile(const std::string& path, const Document& document) {
  std::error_code error;
  if (std::filesystem::is_regular_file(path, error) &&
      std::filesystem::file_size(path, error) == document.text.size()) {
    return true;
  }
  Complain(path, "--in-place is for files that are one document, and this names none");
  return false;
}

// All of it or nothing: what is written beside the file takes its place.
bool ReplaceFile(const std::string& path, const std::string& text) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  if (error) return false;
  std::string beside = target.string() + ".XXXXXX";
  const int file = mkstemp(beside.data());
  if (file < 0) return false;
  struct stat status = {};
  bool isWritten = stat(target.c_str(), &status) == 0 && fchmod(file, status.st_mode & 07777) == 0;
  for (std::size_t at = 0; isWritten && at < text.size();) {
    const ssize_t size = write(file, text.data() + at, text.size() - at);
    isWritten = size > 0;
    if (isWritten) at += static_cast<std::size_t>(size);
  }
  isWritten = isWritten && fsync(file) == 0;
  isWritten = close(file) == 0 && isWritten;
  if (isWritten && std::rename(beside.c_str(), target.c_str()) == 0) return true;
  static_cast<void>(std::remove(beside.c_str()));
  return false;
}

}  // namespace

int Edit(const std::string& path, const std::vector<Change>& changes, const Reading& reading,
         bool inPlace) {
  Document document;
  if (!ReadOneDocument(path, true, "edited", document)) return kCannotRead;
  if (inPlace && !IsWholeFile(path, document)) return kUsage;
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
  if (!inPlace) {
    PrintText(text);
    return kDone;
  }
  if (text == document.text || ReplaceFile(path, text)) return kDone;
  Complain(path, "cannot be written, and is as it was");
  return kOutputFailed;
}
