// The bases of each document's context, marshaller and unmarshaller. Each document has one
// description (ZtDocument), by which these classes work.
#ifndef ZTXML_INCLUDE_ZTDOCUMENT_H
#define ZTXML_INCLUDE_ZTDOCUMENT_H

#include <cstdint>

#include "ztxml/XMLCommonDef.h"
#include "ztxml/XMLContext.h"
#include "ztxml/ztXMLDocGenerator.h"

/// How the library reads and writes a document and an element type; opaque to callers.
struct ZtDocument;
struct ZtElementType;
struct ZtLack;
class XmlDecoder;
class ZtElementWriter;
class ZtNamespaceBindings;
class ZtSchemaDecoder;

/// Makes a document's objects, empty: each is the caller's until a parent takes it. Null without
/// memory.
class ZT_API ZtFactory : public XMLObjectFactory {
 public:
  /// An object of the type of the document's (first) root.
  XMLObject* CreateRootElement() override;

 protected:
  /// Makes the object when it is converted to a pointer, so that `return Make();` makes what the
  /// function returns.
  class Made {
   public:
    explicit Made(const ZtFactory& factory) : m_Factory(factory) {}
    template <class T>
    operator T*() const {  // NOLINT(google-explicit-constructor)
      return static_cast<T*>(m_Factory.Make(T::kType));
    }

   private:
    const ZtFactory& m_Factory;
  };

  Made Make() const { return Made(*this); }
  XMLElement* Make(const ZtElementType& type) const;
  virtual const ZtDocument& Document() const = 0;

 private:
  friend class ZtContext;

  bool m_bStandard = false;  // whether objects get the defaults of their schemas
};

/// A context that makes its workers by a document's description.
class ZT_API ZtContext : public XMLContext {
 public:
  XMLMarshaller* createMarshaller() override;
  XMLUnMarshaller* createUnMarshaller() override;
  XMLObjectFactory* createBinderFactory() override;
  /// The object given with SetNamespaceBinder (borrowed), null when there is none.
  virtual XMLObject* namespaceBinder() const;

 protected:
  virtual const ZtDocument& Document() const = 0;

 private:
  friend class ZtReflection;
};

/// The unmarshalling driver: a parser and a schema decoder, which it keeps for the next document
/// while the memory log is off.
class ZT_API ZtUnMarshaller : public XMLUnMarshaller {
 public:
  ZT_INLINE ~ZtUnMarshaller() override { Close(); }
  XMLElement* UnMarshall(const char* xml) override;
  XMLElement* UnMarshall(XMLFile* file) override;
  XMLElement* UnMarshall(const char* text, std::size_t size) override;
  /// Reads `xml` into `root`, which is the caller's. False, with a null `root`, when it cannot be
  /// parsed or memory is short. True when it was parsed; a null `root` then means another root.
  bool Parse(const char* xml, XMLElement*& root) const;

 protected:
  virtual const ZtDocument& Document() const = 0;
  /// The namespaces that the context has at this moment, null when there are none.
  XMLObject* NamespaceBinder() const;
  /// Whether documents are read in the standard profile.
  bool IsStandard() const;
  /// Tells the context's handler, if it has one, what the types do not keep of a document that was
  /// read in the exact profile.
  void TellLosses(ZtPiece text) const;
  /// What every reading begins with: says that nothing has failed. True unless `text` is null.
  bool Begin(const void* text) const;
  /// Whether the text has one, which the exact profile does not take; says so.
  bool HasNul(ZtPiece text) const;
  /// What every reading ends with: `root`. Where it is null for no other reason, memory was
  /// lacking.
  XMLElement* Ended(XMLElement* root) const;

 private:
  friend class ZtContext;
  void Close();
  ZT_LOCAL XMLElement* ReadExact(ZtPiece xml, const char* noMemory) const;
  ZT_LOCAL XMLElement* ReadStandard(ZtPiece text) const;
  ZT_LOCAL bool Parse(ZtArena& arena, ZtPiece xml, char* text, XMLElement*& root) const;
  ZT_LOCAL void Explain(ZtPiece xml, char* text, const XmlDecoder* parser,
                        const ZtSchemaDecoder& decoder) const;

  const ZtContext* m_pContext = nullptr;  // null for a worker that no context made
  // Kept from one document to the next; null before the first, and after one that made them large.
  mutable XmlDecoder* m_pParser = nullptr;
  mutable ZtSchemaDecoder* m_pDecoder = nullptr;
};

/// The marshalling driver. It holds the document writer and the text of the last Marshall.
class ZT_API ZtMarshaller : public XMLMarshaller {
 public:
  ZT_INLINE ~ZtMarshaller() override { Close(); }
  char* Marshall(XMLElement* root) override;
  XMLMarshaller* Identity() override;
  char* Update(XMLElement* root, std::size_t* size = nullptr) override;
  /// Whether the last Marshall failed for lack of memory or because the tree is too deep, and not
  /// because the tree lacks something.
  bool WasCutShort() const { return m_bCutShort; }

 protected:
  ZtMarshaller();

  /// Writes `element`, an object of `type`, with its children; `prefix` and `name` are the type's
  /// own when XML_STR_ZT_NULL. Returns 1, or 0 when it is null or lacks something required. Only
  /// meaningful while Marshall runs: the document writer holds no document otherwise.
  int Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix = XML_STR_ZT_NULL,
            e_XmlStrRef name = XML_STR_ZT_NULL);
  /// Writes `element` by the table of its class.
  template <class T>
  int Write(T* element, e_XmlStrRef prefix = XML_STR_ZT_NULL) {
    return Write(element, T::kType, prefix);
  }
  /// Writes `text` as the text element `name` of a T; 0 when it is null.
  template <class T>
  int WriteText(e_XmlStrRef name, const char* text) {
    return WriteText(T::kType, name, text);
  }
  int WriteText(const ZtElementType& type, e_XmlStrRef name, const char* text);
  /// A writer without namespaces, for steps without an object; usable only when Write is.
  ZtElementWriter Writer();
  virtual const ZtDocument& Document() const = 0;
  /// The namespaces that the context has at this moment, null when there are none.
  XMLObject* NamespaceBinder() const;
  /// Whether trees are written in the standard profile.
  bool IsStandard() const;

 private:
  friend class ZtContext;
  void Close();
  ZT_LOCAL char* MarshallStandard(XMLElement& root);
  ZT_LOCAL char* MarshallExact(XMLElement* root);
  ZT_LOCAL void Explain(const XMLElement& element, const ZtElementType& type,
                        const ZtLack& lack) const;
  /// Sets `bindings` to the prefixes to write with, null for the library's own. False when out of
  /// memory.
  virtual bool UseNamespaces(const ZtNamespaceBindings*& bindings);
  /// Completes `text`, which the root's table wrote, to the whole document. Owns `text`; the result
  /// is the caller's, null on failure.
  virtual char* Complete(XMLElement* root, char* text);

  ZtXMLDocGenerator m_XmlDocGenerator;
  char* m_pXml = nullptr;  // owned: the text of the last Marshall
  zt_xml_common_array_definition* m_pXmlStrRef;
  const ZtContext* m_pContext = nullptr;  // null for a worker that no context made
  bool m_bCutShort = false;
  std::uint16_t m_iRoom = 4096;  // with which the next document begins
};

/// The base of a context and of its workers: `Base`, with the description Context::kDocument.
template <class Context, class Base>
class ZtDescribedBy : public Base {
 public:
  ZT_INLINE ~ZtDescribedBy() override = default;

 protected:
  using Base::Base;
  const ZtDocument& Document() const override { return Context::kDocument; }
};

#endif  // ZTXML_INCLUDE_ZTDOCUMENT_H
