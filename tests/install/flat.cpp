// A program that includes the package's headers as all once did.
#include <cstdio>

#include "List.h"
#include "XMLFactory.h"
#include "XMLReginfo.h"
#include "ztPlatform.h"
#include "ztxml/ZtValues.h"

int main() {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  XMLElement* root = context->createUnMarshaller()->UnMarshall(
      "<reginfo xmlns='urn:ietf:params:xml:ns:reginfo' version='7' state='full'/>");
  std::printf("%u\n", root ? static_cast<zt_reginfo*>(root)->getVersionValue() : 0U);
  XMLFactory::DeleteElement(root);
  XMLFactory::deleteContext(context);
}
