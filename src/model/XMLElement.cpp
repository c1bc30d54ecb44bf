#include "ztxml/XMLElement.h"

int XMLElement::ProcessUnMarshall(char*, char*, XMLElement*) { return 1; }
int XMLElement::ProcessUnMarshallAttribute(char*, char*, XMLAttribute*) { return 1; }
