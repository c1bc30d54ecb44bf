// A header of the program.
#define OWN_PRESENCE_H
