/** The label lines of customers. */
#include "draw/label_text.h"
#include "draw/labels.h"
#include "model/tables.h"

namespace pn10 {

namespace {

using Field = LabelField<Cdt>;

const char* loadUnits(const Cdt& c) { return c.LOAD_UNITS; }

double recordNumber(const Cdt& c) { return static_cast<double>(&c - model.cdt); }
double mainId(const Cdt& c) { return hasPipeSlot(c.PIPE_REC) ? model.pdt[c.PIPE_REC].ID : 0; }
double totalLoad(const Cdt& c) { return static_cast<double>(c.COUNT) * c.UNIT_LOAD; }

struct Assignment {
  int16_t code;
  const char* text;
};
constexpr Assignment kAssignments[] = {
    {0, "Load Off"},           {1, "From Node"},          {2, "To Node"},
    {3, "Both Nodes"},         {11, "Central Pre 77"},    {12, "Central Post 76"},
    {13, "Non Central Older"}, {14, "Non Central Newer"},
};

bool writeAssignment(LabelText& line, const Cdt& c, bool) {
  for (const Assignment& a : kAssignments) {
    if (a.code == c.NODE_ASGN) line.put(a.text);
  }
  return !line.empty();
}

bool writeLink(LabelText& line, const Cdt& c, bool prefix) {
  line.put(prefix ? "Link ID = " : "");
  line.put(c.LINK_ID, strnlen(c.LINK_ID, sizeof c.LINK_ID));
  return !line.empty();
}

constexpr Field kCustFields[] = {
    {401, "ID = ", kInteger, memberValue<&Cdt::ID>},
    {402, "Main ID = ", kInteger, mainId},
    {.field = 403, .write = writeAssignment},
    {404, "", kCustLoad, memberValue<&Cdt::UNIT_LOAD>, loadUnits},
    {421, "Units = ", kInteger, memberValue<&Cdt::COUNT>},
    {.field = 422, .write = writeLink},
    {438, "Rec No = ", kInteger, recordNumber},
    {454, "Q = ", kCustLoad, totalLoad, loadUnits},
};

}  // namespace

int32_t SetTextC(int32_t cust, int16_t field, char* text, int16_t prefix, int16_t units) {
  LabelText line(text);
  if (!isCust(cust)) return 0;
  return printLabelField(kCustFields, model.cdt[cust], field, line, prefix != 0, units != 0);
}

}  // namespace pn10
