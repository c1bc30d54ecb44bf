// XMLSchemaNamespaceRetrievalDecoder, which is declared with its document.
#include "XMLSchemaNameSpaceRetrieval.h"
