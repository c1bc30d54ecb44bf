#include "binding/ZtPath.h"

#include "binding/ZtStandard.h"
#include "ztxml/ZtListOf.h"

namespace {

// The way from the root of a tree to an object. Trees that are written are no deeper.
class Way {
 public:
  struct Step {
    const XMLElement* parent;
    const ZtField* row;
    const XMLElement* child;
  };

  explicit Way(const XMLElement* object) : m_pObject(object) {}

  bool Find(const XMLElement& parent, const ZtElementType& type) {
    for (const ZtField* row = type.children(); row != type.end() && m_iSize < kMost; ++row) {
      if (row->place == ZtPlace::kChild || row->place == ZtPlace::kOtherChild) {
        if (Try(parent, *row, row->Child(parent).Get())) return true;
      } else if (row->place == ZtPlace::kChildren || row->place == ZtPlace::kOtherChildren) {
        for (XMLElement& child : ZtEach<XMLElement>(row->Children(parent).Get())) {
          if (Try(parent, *row, &child)) return true;
        }
      }
    }
    return false;
  }
  const Step* begin() const { return m_Steps; }
  const Step* end() const { return m_Steps + m_iSize; }

 private:
  static constexpr std::size_t kMost = 200;

  bool Try(const XMLElement& parent, const ZtField& row, const XMLElement* child) {
    if (!child) return false;
    m_Steps[m_iSize++] = {&parent, &row, child};
    if (child == m_pObject) return true;
    const ZtElementType* type = row.IsObject() ? row.detail.type : nullptr;
    for (const ZtChoice* at = row.IsObject() ? nullptr : row.detail.choices; at && at->type; ++at) {
      if (ZtIsClass(child->ClassName(), *at->type)) type = at->type;
    }
    if (type && ZtIsClass(child->ClassName(), *type) && Find(*child, *type)) return true;
    --m_iSize;
    return false;
  }

  const XMLElement* m_pObject;
  std::size_t m_iSize = 0;
  Step m_Steps[kMost];
};

}  // namespace

void ZtPath::PushObject(const XMLElement& root, const ZtElementType& type, const XMLElement* object,
                        const ZtField* row) {
  Way way(object);
  if (object != &root && !way.Find(root, type)) return;
  for (const Way::Step& step : way) {
    const ZtPiece name = ZtNameOfObject(*step.row, *step.child);
    Push("/", name.text ? name : ZtPiece(step.child->ElementName()),
         ZtIsSingle(*step.row) ? 0 : ZtIndexOf(*step.parent, *step.row, *step.child));
  }
  if (!row || row->IsOwnText()) return;
  Push(row->place == ZtPlace::kAttribute ? "/@" : "/", row->name.Piece());
}

std::size_t ZtPath::Push(const char* sign, ZtPiece name, std::size_t index) {
  const std::size_t size = m_iSize;
  char buffer[kZtNumberSize];
  const ZtPiece number = index ? ZtFormatNumber(index, buffer) : ZtPiece(nullptr);
  const ZtPiece start = sign;
  const std::size_t more = start.size + name.size + (index ? number.size + 2 : 0);
  if (m_iSize > kMost || more > kMost - m_iSize) {
    if (m_iSize <= kMost) Append("...");
    m_iSize = kMost + 1;
    return size;
  }
  Append(start);
  Append(name);
  if (index) {
    Append("[");
    Append(number);
    Append("]");
  }
  return size;
}

void ZtPath::Append(ZtPiece piece) {
  if (piece.size) std::memcpy(m_Text + m_iSize, piece.text, piece.size);
  m_iSize += piece.size;
  m_Text[m_iSize] = '\0';
}
