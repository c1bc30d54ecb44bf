// The element names of a document as its schema decoder sees them.
#ifndef ZTXML_SRC_BINDING_ZTGRAMMAR_H
#define ZTXML_SRC_BINDING_ZTGRAMMAR_H

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
  // ZT_NULL, with a parent: every element that neither another row nor one of the parent's own rows
  // names.
  ZtNameId name;
  ZtElementKind kind;
  const ZtElementType* type;              // null for flags
  const ZtElementType* parent = nullptr;  // only inside an element of this type

  // Whether its object is open between its start and its end.
  constexpr bool IsOpened() const {
    return kind != ZtElementKind::kFlag && kind != ZtElementKind::kEndBound;
  }
};

// The bytes of `name` that are kept. Intended: decoders keep the size of a name, with two bytes
// more, in 16 bits, so that names of 65534 bytes or more are cut short; callers that drive a
// decoder themselves get the same.
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
  // Whether what ends is always what its start has opened: no name of an opened element is also
  // that of one which is made at its end.
  bool endsAsStarted = true;
  bool takesAny = false;  // a row without a name
  ZtGrammarTable own = {};
  ZtGrammarTable shared = {};
  // Rows by the low bits of their names: the first, and behind each the next one, in their order;
  // 0 where there is none.
  static constexpr std::size_t kMostRows = 40;
  std::uint8_t first[64] = {};
  std::uint8_t next[kMostRows + 1] = {};

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

  constexpr std::size_t Count() const { return own.count + shared.count; }
  // From 1 on, the own ones first.
  constexpr const ZtGrammarRow& Row(std::size_t i) const {
    return i <= own.count ? own.rows[i - 1] : shared.rows[i - 1 - own.count];
  }

  // The first row with this name that `matches`, or null.
  template <class Matches>
  const ZtGrammarRow* Find(ZtNameId name, Matches matches) const {
    for (std::size_t i = first[name.Low6Bits()]; i; i = next[i]) {
      const ZtGrammarRow& row = Row(i);
      if (row.name == name && matches(row)) return &row;
    }
    return nullptr;
  }

 private:
  template <std::size_t N>
  constexpr ZtGrammar With(ZtGrammarTable ZtGrammar::*table, const ZtGrammarRow (&rows)[N]) const {
    ZtGrammar grammar = ZtWith(*this, table, ZtGrammarTable{rows, N});
    for (std::uint8_t& chain : grammar.first) chain = 0;
    grammar.takesAny = false;
    // Too many rows are an index out of bounds, with which nothing compiles.
    for (std::size_t i = grammar.Count(); i; --i) {
      const ZtGrammarRow& row = grammar.Row(i);
      std::uint8_t& chain = grammar.first[row.name.Low6Bits()];
      grammar.next[i] = chain;
      chain = static_cast<std::uint8_t>(i);
      grammar.takesAny = grammar.takesAny || row.name.IsNone();
      grammar.endsAsStarted = grammar.endsAsStarted && !grammar.EndsElsewhere(row);
    }
    return grammar;
  }
  // Whether another row of this name tells `row`'s end otherwise.
  constexpr bool EndsElsewhere(const ZtGrammarRow& row) const {
    for (std::size_t i = Count(); i; --i) {
      const ZtGrammarRow& other = Row(i);
      if (other.name == row.name && other.IsOpened() != row.IsOpened()) return true;
    }
    return false;
  }
};

#endif  // ZTXML_SRC_BINDING_ZTGRAMMAR_H
