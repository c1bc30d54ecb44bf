// A header of the program.
#define OWN_FILE_H
