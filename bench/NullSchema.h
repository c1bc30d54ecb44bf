// A receiver of the parser's callbacks that does nothing with them.
#ifndef ZTXML_BENCH_NULLSCHEMA_H
#define ZTXML_BENCH_NULLSCHEMA_H

#include "ztxml/XmlDecoder.h"

class NullSchema : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char*, char*, char*) override { return 0; }
  int ProcessElement(char*, char*) override { return 0; }
  int ProcessElementOpened(char*) override { return 0; }
  void* GetSessionData() override { return nullptr; }
};

#endif  // ZTXML_BENCH_NULLSCHEMA_H
