// The element names of a document as its schema decoder sees them.
#ifndef ZTXML_SRC_BINDING_ZTGRAMMAR_H
#define ZTXML_SRC_BINDING_ZTGRAMMAR_H

#include <initializer_list>

#include "binding/ZtBinding.h"

enum class ZtElementKind : std::uint8_t {
  kRoot,
  kStructured,   // its object is offered at the start and open until the end
  kTextBearing,  // the same, and it gets its text before it is closed
  kExtension,    // a structured element of a foreign namespace: opened before it is offered
  kFlag,         // an empty element whose presence is the value
  kEndBound,     // its object is made and offered at its end, with its text
};

// One name. Names that stand in no row are texts of their parent or unknown: they are offered
// without an object at their start and their end, and what is inside them is skipped.
struct ZtGrammarRow {
  // ZT_NULL, in the last rows and with a parent: every element that neither another row nor one of
  // the parent's own rows names.
  ZtNameId name;
  ZtElementKind kind;
  const ZtElementType* type;              // null for flags
  const ZtElementType* parent = nullptr;  // only inside an element of this type

  // Whether its object is open between its start and its end.
  constexpr bool IsOpened() const {
    return kind != ZtElementKind::kFlag && kind != ZtElementKind::kEndBound;
  }
};

// Intended: decoders keep the size of a name, with two bytes more, in 16 bits, so that names of
// 65534 bytes or more are cut short. The bytes of `name` that are kept.
inline std::size_t ZtShortNameSize(const char* name) {
  const std::size_t size = __strlen(name);
  const std::size_t room = static_cast<std::uint16_t>(size + 2);
  return size < room ? size : room ? room - 1 : 0;
}

// What a decoder does with prefixes. Only a ZtNamespaceDecoder rewrites them.
enum class ZtPrefixRule : std::uint8_t { kExact, kStrip, kRewrite };

struct ZtGrammarTable {
  const ZtGrammarRow* rows = nullptr;
  std::size_t count = 0;
};

// A decoder's names: its own, and those that it shares with other decoders.
struct ZtGrammar {
  const char* decoder;   // class name for the logs
  const char* source;    // file of the decoder, for the logs
  const char* noMemory;  // the line when a name cannot be normalised; %s is the decoder
  ZtPrefixRule prefixes;
  ZtNameFilter names = {};  // of the rows
  // Whether what ends is always what its start has opened: no name of an opened element is also
  // that of one which is made at its end.
  bool endsAsStarted = true;
  ZtGrammarTable own = {};
  ZtGrammarTable shared = {};

  constexpr ZtGrammar(const char* className, const char* file, ZtPrefixRule rule)
      : decoder(className),
        source(file),
        noMemory(rule == ZtPrefixRule::kRewrite
                     ? "%s :: XMLChangeNamespaceTag Malloc unable to allocate memory"
                     : "%s :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory"),
        prefixes(rule) {}

  template <std::size_t N>
  constexpr ZtGrammar Names(const ZtGrammarRow (&rows)[N]) const {
    return With(&ZtGrammar::own, rows);
  }
  template <std::size_t N>
  constexpr ZtGrammar Shares(const ZtGrammarRow (&rows)[N]) const {
    return With(&ZtGrammar::shared, rows);
  }
  constexpr ZtGrammar NoMemory(const char* line) const {
    return ZtWith(*this, &ZtGrammar::noMemory, line);
  }

  // Whether a row may have this name, or any.
  constexpr bool MayHave(ZtNameId name) const {
    return names.MayHave(name) || names.MayHave(XML_STR_ZT_NULL);
  }

  // The first row that `matches`, or null.
  template <class Matches>
  const ZtGrammarRow* Find(Matches matches) const {
    for (const ZtGrammarTable& table : {own, shared}) {
      for (const ZtGrammarRow* row = table.rows; row != table.rows + table.count; ++row) {
        if (matches(*row)) return row;
      }
    }
    return nullptr;
  }

 private:
  template <std::size_t N>
  constexpr ZtGrammar With(ZtGrammarTable ZtGrammar::*table, const ZtGrammarRow (&rows)[N]) const {
    ZtGrammar grammar = ZtWith(*this, table, ZtGrammarTable{rows, N});
    for (const ZtGrammarRow& row : rows) {
      grammar.names.Add(row.name);
      grammar.endsAsStarted = grammar.endsAsStarted && !grammar.EndsElsewhere(row);
    }
    return grammar;
  }
  // Whether another row of this name tells `row`'s end otherwise.
  constexpr bool EndsElsewhere(const ZtGrammarRow& row) const {
    for (const ZtGrammarTable* table : {&own, &shared}) {
      for (std::size_t i = 0; i < table->count; ++i) {
        const ZtGrammarRow& other = table->rows[i];
        if (other.name == row.name && other.IsOpened() != row.IsOpened()) return true;
      }
    }
    return false;
  }
};

#endif  // ZTXML_SRC_BINDING_ZTGRAMMAR_H
