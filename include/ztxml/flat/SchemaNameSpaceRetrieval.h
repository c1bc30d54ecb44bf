#include "ztxml/XMLSchemaNameSpaceRetrieval.h"  // declares XMLSchemaNamespaceRetrievalDecoder
