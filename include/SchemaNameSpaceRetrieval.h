#include "XMLSchemaNameSpaceRetrieval.h"  // declares XMLSchemaNamespaceRetrievalDecoder
