// What documents changed, one after another: notifications, merged to the state that they tell;
// presence and what is put at a URL, compared with what was there before.
#ifndef ZTXML_TOOLS_FOLLOW_H
#define ZTXML_TOOLS_FOLLOW_H

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Read.h"

/// Names and values of a part of a document, "@state" and "active".
using Facts = std::vector<std::pair<std::string, std::string>>;

/// An object that is one of several, or the root, with what it and the objects below it hold,
/// except those that are parts themselves.
struct Part {
  std::string name;  ///< of the element
  std::string path;
  Facts facts;
  std::size_t cost = 0;  ///< what was looked at for them
};
/// The parts of a tree of the standard profile, in its order; those of which the path is too long
/// are left out.
std::vector<Part> PartsOf(const Tree& tree);

/// The address of the first registration; "" for none.
std::string RegistrationOf(const std::vector<Part>& parts);

/// Something that a document changed.
struct Difference {
  struct Value {
    std::string name;
    std::string before;
    std::string after;
    bool wasThere = false;
    bool isThere = false;
  };

  const char* kind = "";  ///< "added", "changed" or "removed"
  std::string path;
  std::vector<Value> values;
  std::map<std::string, std::size_t> parts;  ///< of what is new: how many of which name are below
};

/// What became of a document.
struct Followed {
  std::string what;       ///< "applied", ..., "nothing before it"; "" for one that is not followed
  bool isMissed = false;  ///< whether a new full notification is needed
  std::vector<Difference> differences;
};

class Follower {
 public:
  Follower();
  ~Follower();
  /// Takes a document, read in the standard profile, of which the tree is gone then.
  Followed Take(const Document& document, const std::vector<Part>& parts, Tree& tree);

 private:
  struct State;
  struct Known;

  static Followed Merge(State& state, std::size_t size, Tree& tree);
  static Followed Compare(Known& known, const std::vector<Part>& parts);

  // Strangers choose the keys: no hash table, which they could fill with collisions.
  std::map<std::string, std::unique_ptr<State>> m_States;
  std::map<std::string, std::unique_ptr<Known>> m_Known;
};

#endif  // ZTXML_TOOLS_FOLLOW_H
