// ztxml events: the parser's callbacks.
#include <iostream>

#include "Commands.h"
#include "Read.h"
#include "Text.h"

namespace {

class EventPrinter : public Receiver {
 public:
  int ProcessElement(char* name, char* value) override {
    std::cout << (*name == '/' ? "end " : "start ") << Escape(name);
    if (value) std::cout << ' ' << Quote(value);
    std::cout << '\n';
    return 0;
  }
  int ProcessAttribute(char* element, char* name, char* value) override {
    std::cout << "attribute " << Escape(element) << ' ' << Escape(name) << '=' << Quote(value)
              << '\n';
    return 0;
  }
  int ProcessElementOpened(char* name) override {
    std::cout << "opened " << Escape(name) << '\n';
    return 0;
  }
};

}  // namespace

int PrintEvents(const Document& document) {
  EventPrinter printer;
  Failure failure;
  return Parse(document, &printer, failure) ? kDone : Refuse(document.name, failure);
}
