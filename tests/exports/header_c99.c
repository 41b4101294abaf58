/* The headers alone, as strict C99: they must compile, and the records must keep their sizes in C too. */
#include "pn10gdi.h"
#include "pn10platform.h"

typedef char NdtKeepsItsSize[sizeof(Ndt) == 240 ? 1 : -1];
typedef char PdtKeepsItsSize[sizeof(Pdt) == 296 ? 1 : -1];
typedef char ViewOptsKeepsItsSize[sizeof(ViewOpts) == 512 ? 1 : -1];

int headerCompilesAsC(void) {
  return (int)(sizeof(NdtKeepsItsSize) + sizeof(PdtKeepsItsSize) + sizeof(ViewOptsKeepsItsSize));
}
