#define __WORDSIZE 64
