/** The text helpers of the whole system: upper case and trims in place. */
#include "fields/text.h"

#include <cstring>

#include "exports/pn10gdi.h"

using pn10::trimmedLength;

int32_t StrUpper(char* text) {
  if (!text) return 0;
  char* p = text;
  for (; *p; p++) *p = pn10::upper(*p);
  return static_cast<int32_t>(p - text);
}

void TrimRight(char* text) {
  if (text) text[trimmedLength(text, std::strlen(text))] = 0;
}

void TrimRight20(char* text20) {
  if (text20) text20[trimmedLength(text20, 20)] = 0;
}
