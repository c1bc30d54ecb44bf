// A header of the program.
#define OWN_LIST_H
