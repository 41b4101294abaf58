/** Loads of a customer, and the customer of an identity. */
#include "fields/cust_calcs.h"

#include <cstring>

#include "fields/number_format.h"
#include "fields/number_text.h"
#include "fields/records.h"
#include "model/draw_state.h"
#include "model/wait_cursor.h"

namespace pn10 {

namespace {

/** Entry of the digit table for customer loads. */
constexpr int32_t kLoadDigits = 25;

void printLoad(char* text, double load, const char* units) {
  if (!text) return;
  char number[kNumberSize];
  const size_t length = printDigits(number, sizeof number, kLoadDigits, load);
  std::memcpy(text, number, length);
  text[length] = ' ';
  copyText(text + length + 1, sizeof(Cdt::LOAD_UNITS), units);
}

}  // namespace

double CalcCustLoad(int32_t cust) {
  const Cdt& c = custAt(cust);
  if (c.LOAD_MULT == 0.0f) return 0.0;
  const double load = wide(c.UNIT_LOAD) * wide(c.LOAD_MULT);
  return c.LOAD_DF != 0 ? load * wide(drawState.LoadFactor) : load;
}

double totalLoadText(int32_t cust, char* text) {
  const Cdt& c = custAt(cust);
  const double load = CalcCustLoad(cust);
  printLoad(text, c.COUNT * load, c.LOAD_UNITS);
  return load;  // kept: the count is in the text only
}

double unitLoadText(int32_t cust, char* text) {
  const double load = CalcCustLoad(cust);
  printLoad(text, load, custAt(cust).LOAD_UNITS);
  return load;
}

double linkedRecord(int32_t cust) {
  const Cdt& c = custAt(cust);
  return c.LINK_FLAG != 0 ? FindCustByID(c.LINK_CUST) : 0;
}

}  // namespace pn10

int32_t FindCustByID(int32_t id) {
  using namespace pn10;
  const WaitCursor wait;
  for (int32_t c = 1; c <= custTop(); c++)
    if (model.cdt[c].ID == id && model.cdt[c].REC_STATUS >= 0) return c;
  return 0;
}
