#include "Follow.h"

#include <set>
#include <string_view>

#include "Merge.h"
#include "Text.h"
#include "binding/ZtKeyIndex.h"

using reflect::Field;
using reflect::Item;

namespace {

constexpr std::size_t kMostPath = 400;

const ZtElementType& StandardTypeOf(const XMLElement& object) {
  return ZtStandardOf(reflect::TypeOf(object));
}

// What tells an object from others of its name, "" for none: the key that notifications are merged
// by, else an attribute that is used for this.
std::string KeyOf(const XMLElement& object, bool& isMerged) {
  const ZtElementType& type = StandardTypeOf(object);
  isMerged = type.extras && type.extras->telling && !(type.extras->telling->key == kZtNoName);
  if (isMerged) {
    const ZtPiece key = ZtKeyOf(object, type);
    return std::string(key.text, key.size);
  }
  for (const std::string_view wanted : {"id", "entity", "uri", "aor", "name", "auid"}) {
    for (const Field& field : reflect::FieldsOf({object, &type})) {
      if (!reflect::IsAttribute(field) || !field.name || wanted != field.name) continue;
      if (field.IsPresent() && field.items[0].text) return field.items[0].text;
    }
  }
  return "";
}

class Collector : public reflect::Visitor {
 public:
  /// With `entersParts` the parts below the root are collected, too.
  Collector(const std::string& path, bool entersParts)
      : m_Path(path), m_bEntersParts(entersParts) {}

  std::vector<Part> parts;

  bool Enter(const XMLElement& object, const char* name, const Field* in) override {
    if (!in) {
      const std::string path = m_Path.empty() ? '/' + std::string(name) : m_Path;
      m_Open.push_back({0, "", {}});
      parts.push_back({name, path, {}, 0});
      return true;
    }
    Level& above = m_Open.back();
    const std::size_t number = in->IsRepeated() ? ++above.counts[name] : 0;
    Level level = {above.part, above.prefix, {}};
    bool isMerged = false;
    const std::string key = number ? KeyOf(object, isMerged) : "";
    std::string step = '/' + std::string(name);
    bool isEntered = false;
    if (!key.empty()) {
      const std::string path = parts[above.part].path + above.prefix + step + '[' + key + ']';
      isEntered = path.size() <= kMostPath && (m_bEntersParts || !isMerged);
      if (isEntered) {
        level = {parts.size(), "", {}};
        parts.push_back({name, path, {}, 0});
      }
    } else {
      if (number > 1) step += '[' + std::to_string(number) + ']';
      level.prefix += step;
      isEntered = level.prefix.size() <= kMostPath;
      if (isEntered && IsFlag(object)) Add(level, "", "");
    }
    m_Open.push_back(std::move(level));
    return isEntered;
  }
  void Begin(const Field& field) override {
    const Level& level = m_Open.back();
    parts[level.part].cost += field.items.size();
    const bool holdsValues = field.value != ZtValue::kObject || field.HoldsAttributes();
    if (!holdsValues) return;
    std::size_t number = 0;
    for (const Item& item : field.items) {
      const char* const own = item.name ? item.name : field.name;
      std::string name;
      if (field.place != ZtPlace::kOwnText && field.place != ZtPlace::kOwnWords && own) {
        name = (reflect::IsAttribute(field) ? "/@" : "/") + std::string(own);
      }
      if (number++ && !field.HoldsAttributes()) name += '[' + std::to_string(number) + ']';
      Add(level, name, item.text ? std::string(item.text) : std::to_string(field.number));
    }
  }
  void End(const Field& /*field*/) override {}
  void Leave(const XMLElement& /*object*/) override { m_Open.pop_back(); }

 private:
  struct Level {
    std::size_t part;
    std::string prefix;  // of names in the part
    std::map<std::string, std::size_t> counts;
  };

  static bool IsFlag(const XMLElement& object) {
    for (const Field& field : reflect::FieldsOf({object, &StandardTypeOf(object)})) {
      if (field.IsPresent()) return false;
    }
    return true;
  }
  void Add(const Level& level, const std::string& name, const std::string& value) {
    std::string full = level.prefix + name;
    full = full.empty() ? "(text)" : full.substr(1);
    parts[level.part].facts.emplace_back(std::move(full), value);
  }

  const std::string m_Path;
  const bool m_bEntersParts;
  std::vector<Level> m_Open;
};

using Values = std::vector<Difference::Value>;

Values Compared(const Facts& before, const Facts& after) {
  std::map<std::string_view, std::string_view> old;
  for (const auto& [name, value] : before) old.emplace(name, value);
  Values values;
  std::set<std::string_view> seen;
  for (const auto& [name, value] : after) {
    seen.insert(name);
    const auto found = old.find(name);
    const bool wasThere = found != old.end();
    if (wasThere && found->second == value) continue;
    values.push_back({name, wasThere ? std::string(found->second) : "", value, wasThere, true});
  }
  for (const auto& [name, value] : before) {
    if (!seen.count(name)) values.push_back({name, value, "", true, false});
  }
  return values;
}

bool IsBelow(const std::string& path, const std::string& other) {
  return !other.empty() && path.size() > other.size() && StartsWith(path, other) &&
         path[other.size()] == '/';
}

std::string FactOf(const std::vector<Part>& parts, std::string_view wanted) {
  for (const auto& [name, value] : parts[0].facts) {
    if (name == wanted) return value;
  }
  return "";
}

// What a document tells of; without a subscription's Call-ID the first registration is as good.
std::string EntityOf(const Document& document, const std::vector<Part>& parts) {
  for (const char* const name : {"@entity", "@uri"}) {
    std::string entity = FactOf(parts, name);
    if (!entity.empty()) return entity;
  }
  if (!document.message.callId.empty()) return "";
  return RegistrationOf(parts);
}

// The URL of a request that puts a document there, "" for others.
std::string PutUrlOf(const std::string& startLine) {
  const std::size_t put = startLine.rfind("PUT ");
  const std::size_t end = startLine.rfind(" HTTP/");
  if (put == std::string::npos || end == std::string::npos || end < put + 4) return "";
  if (put && startLine[put - 1] != ' ') return "";
  return startLine.substr(put + 4, end - put - 4);
}

}  // namespace

std::vector<Part> PartsOf(const Tree& tree) {
  Collector collector("", true);
  reflect::Walk(reflect::StandardRoot(*tree.table, *tree.root), collector);
  return std::move(collector.parts);
}

std::string RegistrationOf(const std::vector<Part>& parts) {
  for (const Part& part : parts) {
    for (const auto& [name, value] : part.facts) {
      if (name == "@aor") return value;
    }
  }
  return "";
}

// The state of a subscription, and of each of its parts what it held when it was last told of.
struct Follower::State {
  explicit State(const ZtDocument& document) : merged(document) {}

  struct Told {
    Facts facts;
    std::size_t cost = 0;
    bool isKnown = false;  // what it held then
  };

  // Whether there may be a look at what a changed element holds.
  bool Affords(const std::string& path) {
    Told& before = told[path];
    if (before.cost > budget) {
      before.facts.clear();
      before.isKnown = false;
      return false;
    }
    budget -= before.cost;
    return true;
  }

  ZtState merged;
  std::map<std::string, Told> told;
  // An element that a few bytes change may hold much that was told long before. All looking at such
  // costs no more than the notifications are long; where it would, the values are not compared.
  std::size_t budget = 0;
};

struct Follower::Known {
  std::vector<Part> parts;
};

Follower::Follower() = default;
Follower::~Follower() = default;

Followed Follower::Take(const Document& document, const std::vector<Part>& parts, Tree& tree) {
  const char nul = '\0';
  const std::string schema = std::string(tree.schema->name) + nul;
  const std::string entity = document.message.callId + nul + EntityOf(document, parts);
  if (const ZtDocument* const table = TableOfParts(*tree.schema)) {
    std::unique_ptr<State>& state = m_States[schema + entity];
    if (!state) state = std::make_unique<State>(*table);
    return Merge(*state, document.text.size(), tree);
  }
  const bool isPresence = tree.schema->id == XML_SCHEMA_PRESENCE;
  const std::string url = isPresence ? "" : PutUrlOf(document.message.startLine);
  if (!isPresence && url.empty()) return {};
  std::unique_ptr<Known>& known = m_Known[schema + (isPresence ? entity : url)];
  if (!known) {
    known = std::make_unique<Known>();
    known->parts = parts;
    return {"nothing before it", false, {}};
  }
  return Compare(*known, parts);
}

Followed Follower::Merge(State& state, std::size_t size, Tree& tree) {
  state.budget += size;
  ztxml::Merged merged;
  ztxml::Error error;
  if (!state.merged.Take(tree.root.release(), merged, error)) {
    return {std::string("not merged: ") + error.Text(), true, {}};
  }
  Followed followed = {DescribeOutcome(merged), false, {}};
  followed.isMissed = merged.outcome == ztxml::Merged::Outcome::kRefresh;
  for (unsigned i = 0; i < state.merged.ChangeCount(); ++i) {
    const ztxml::Change change = state.merged.ChangeAt(i);
    Difference difference;
    difference.kind = NameOf(change.kind);
    difference.path = change.path;
    const bool isNew = change.kind == ztxml::Change::Kind::kAdded;
    if (change.kind == ztxml::Change::Kind::kRemoved) {
      state.told.erase(change.path);
    } else if (isNew || state.Affords(change.path)) {
      Collector collector(change.path, isNew);
      reflect::Walk({*change.object, &StandardTypeOf(*change.object)}, collector);
      for (Part& part : collector.parts) {
        State::Told& told = state.told[part.path];
        if (isNew) told.facts.clear();
        if (part.path != change.path) {
          ++difference.parts[part.name];
        } else if (isNew || told.isKnown) {
          difference.values = Compared(told.facts, part.facts);
        }
        told = {std::move(part.facts), part.cost, true};
      }
    }
    followed.differences.push_back(std::move(difference));
  }
  return followed;
}

Followed Follower::Compare(Known& known, const std::vector<Part>& parts) {
  std::map<std::string_view, const Part*> old;
  for (const Part& part : known.parts) old.emplace(part.path, &part);
  Followed followed = {"compared", false, {}};
  std::set<std::string_view> seen;
  std::string told;  // what is new, of which the parts are not told
  for (const Part& part : parts) {
    seen.insert(part.path);
    const auto found = old.find(part.path);
    const bool wasThere = found != old.end();
    if (!wasThere && IsBelow(part.path, told)) {
      ++followed.differences.back().parts[part.name];
      continue;
    }
    if (!wasThere) told = part.path;
    Values values = Compared(wasThere ? found->second->facts : Facts(), part.facts);
    if (wasThere && values.empty()) continue;
    followed.differences.push_back(
        {wasThere ? "changed" : "added", part.path, std::move(values), {}});
  }
  told.clear();
  for (const Part& part : known.parts) {
    if (seen.count(part.path) || IsBelow(part.path, told)) continue;
    told = part.path;
    followed.differences.push_back({"removed", part.path, {}, {}});
  }
  known.parts = parts;
  return followed;
}
