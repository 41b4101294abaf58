/** The shapes of all symbols. A new symbol is one list of steps and one row. */
#include "draw/symbol_catalogue.h"

#include <cstddef>

namespace pn10 {

namespace {

using enum Verb;

/* The square begins 0.707 from the origin and walks sides of 1, so it stands by a trifle to the upper right. */
constexpr double kLow = -0.707 * 0.7071067811865476, kHigh = kLow + 1;
constexpr double kSin60 = 0.8660254037844386, kRoot = 0.7071067811865476;
/* cosine and sine of 36 and 72 degrees */
constexpr double kC36 = 0.8090169943749475, kS36 = 0.5877852522924731, kC72 = 0.30901699437494745,
                 kS72 = 0.9510565162951535;
constexpr double kTip = 0.5, kNotch = 0.191; /* radii of the star */
constexpr double kRay = 0.707 * 0.25;        /* diagonal offset of radius 0.25 */
constexpr double kSpoke = 0.5 * kRoot, kLongSpoke = kRoot;

#define PN10_SQUARE \
  {Corner, kLow, kLow}, {Corner, kLow, kHigh}, {Corner, kHigh, kHigh}, {Corner, kHigh, kLow}, { Fill, 0, 0 }
#define PN10_BOW_TIE \
  {Corner, -0.5, 0.33}, {Corner, 0.5, -0.33}, {Corner, 0.5, 0.33}, {Corner, -0.5, -0.33}, { Fill, 0, 0 }
#define PN10_LETTER_F                                                                               \
  {Move, -0.076, 0}, {Line, 0.075, 0}, {Move, -0.076, 0}, {Line, -0.076, -0.15}, {Move, -0.076, 0}, \
      {Line, -0.076, 0.15}, {                                                                       \
    Line, 0.074, 0.15                                                                               \
  }

constexpr Step kDisc[] = {{Box, -0.5, 0.5}, {Disc, 0.5, -0.5}};
constexpr Step kSquare[] = {PN10_SQUARE};
constexpr Step kSun[] = {
    {Box, -0.25, 0.25},   {Disc, 0.25, -0.25},          {Move, 0.25, 0},  {Line, 0.5, 0},
    {Move, kRay, kRay},   {Line, 2 * kRay, 2 * kRay},   {Move, 0, 0.25},  {Line, 0, 0.5},
    {Move, -kRay, kRay},  {Line, -2 * kRay, 2 * kRay},  {Move, -0.25, 0}, {Line, -0.5, 0},
    {Move, -kRay, -kRay}, {Line, -2 * kRay, -2 * kRay}, {Move, 0, -0.25}, {Line, 0, -0.5},
    {Move, kRay, -kRay},  {Line, 2 * kRay, -2 * kRay},
};
constexpr Step kTriangle[] = {{Corner, 0.5, -0.366}, {Corner, 0, 0.5}, {Corner, -0.5, -0.366}, {Fill, 0, 0}};
constexpr Step kTriangleMark[] = {{Corner, 0.57735, 0},
                                  {Corner, -0.5 * 0.57735, kSin60 * 0.57735},
                                  {Corner, -0.5 * 0.57735, -kSin60 * 0.57735},
                                  {Fill, 0, 0}};
constexpr Step kStar[] = {
    {Corner, kTip, 0},
    {Corner, kNotch* kC36, kNotch* kS36},
    {Corner, kTip* kC72, kTip* kS72},
    {Corner, -kNotch* kC72, kNotch* kS72},
    {Corner, -kTip* kC36, kTip* kS36},
    {Corner, -kNotch, 0},
    {Corner, -kTip* kC36, -kTip* kS36},
    {Corner, -kNotch* kC72, -kNotch* kS72},
    {Corner, kTip* kC72, -kTip* kS72},
    {Corner, kNotch* kC36, -kNotch* kS36},
    {Fill, 0, 0},
};
constexpr Step kDiamond[] = {{Corner, 0, -0.25}, {Corner, 0.5, 0}, {Corner, 0, 0.25}, {Corner, -0.5, 0}, {Fill, 0, 0}};
constexpr Step kValve[] = {{Device, 0, 0}, PN10_BOW_TIE};
constexpr Step kRegulator[] = {{Device, 0, 0},        PN10_BOW_TIE,          {Move, 0, 0},
                               {Line, 0, 0.495},      {Box, -0.467, 0.962},  {Pie, 0.466, 0.029},
                               {Radial, 0.33, 0.495}, {EndPie, -0.33, 0.495}};
constexpr Step kBracket[] = {{Move, 0, 0}, {Line, 0, 0.5},  {Line, -0.5, 0.5},
                             {Move, 0, 0}, {Line, 0, -0.5}, {Line, -0.5, -0.5}};
constexpr Step kHalfDisc[] = {{Box, -0.467, -0.033}, {Pie, 0.466, -0.966}, {Radial, 0, -0.829}, {EndPie, 0, -0.17}};
constexpr Step kHalfDiscMark[] = {
    {Device, 0, 0}, {Box, -0.472, 0.467}, {Pie, 0.461, -0.466}, {Radial, -0.006, -0.329}, {EndPie, -0.006, 0.331}};
constexpr Step kArrowCircle[] = {{Box, -0.5, 0.5},       {Ring, 0.5, -0.5},      {Device, 0, 0},
                                 {Corner, 0.5, 0},       {Corner, 0.179, -0.05}, {Corner, 0.179, 0.05},
                                 {Fill, 0, 0},           {Plain, 0, 0},          {Move, 0.077, -0.146},
                                 {Line, -0.328, -0.146}, {Line, 0.077, 0.147},   {Line, -0.328, 0.147}};
constexpr Step kEndRegulator[] = {{Device, 0, 0},      {Corner, 0, 0.33},      {Corner, 1, -0.33},
                                  {Corner, 1, 0.33},   {Corner, 0, -0.33},     {Fill, 0, 0},
                                  {Move, 0.5, 0},      {Line, 0.5, 0.495},     {Box, 0.033, 0.962},
                                  {Pie, 0.966, 0.029}, {Radial, 0.829, 0.495}, {EndPie, 0.169, 0.495}};
constexpr Step kCrossedCircle[] = {{Box, -0.5, 0.5}, {OnlyDisc, 0.5, -0.5}, {Move, -0.5, 0.5}, {Line, 0.5, -0.5}};
constexpr Step kFittingBox[] = {PN10_SQUARE, PN10_LETTER_F};
constexpr Step kRegulatorAndFitting[] = {
    {Device, 0, 0},       {Corner, -0.6, 0.2}, {Corner, 0, -0.2},       {Corner, 0, 0.2},
    {Corner, -0.6, -0.2}, {Fill, 0, 0},        {Move, -0.3, 0},         {Line, -0.3, 0.298},
    {Box, -0.581, 0.578}, {Pie, -0.02, 0.017}, {Radial, -0.103, 0.298}, {EndPie, -0.499, 0.298},
    {Plain, 0, 0},        {Corner, 0, -0.2},   {Corner, 0, 0.2},        {Corner, 0.4, 0.2},
    {Corner, 0.4, -0.2},  {Fill, 0, 0},        {Move, 0.14, 0},         {Line, 0.26, 0},
    {Move, 0.14, -0.12},  {Line, 0.14, 0.12},  {Move, 0.14, 0.12},      {Line, 0.26, 0.12},
};
constexpr Step kDoubleBox[] = {PN10_SQUARE,
                               {Corner, 0.5 * kLow, 0.5 * kLow},
                               {Corner, 0.5 * kLow, 0.5 * kHigh},
                               {Corner, 0.5 * kHigh, 0.5 * kHigh},
                               {Corner, 0.5 * kHigh, 0.5 * kLow},
                               {Fill, 0, 0},
                               PN10_LETTER_F};
constexpr Step kStation[] = {
    PN10_SQUARE,
    {Device, 0, 0},
    {Corner, -0.426, 0.015},
    {Corner, 0.074, -0.315},
    {Corner, 0.074, 0.015},
    {Corner, -0.426, -0.315},
    {Fill, 0, 0},
    {Move, -0.176, -0.15},
    {Line, -0.176, 0.098},
    {Box, -0.409, 0.331},
    {Pie, 0.058, -0.135},
    {Radial, -0.011, 0.098},
    {EndPie, -0.341, 0.098},
    {Plain, 0, 0},
    {Corner, 0.075, -0.316},
    {Corner, 0.075, 0.017},
    {Corner, 0.408, 0.017},
    {Corner, 0.408, -0.316},
    {Fill, 0, 0},
    {Move, 0.191, -0.15},
    {Line, 0.291, -0.15},
    {Move, 0.191, -0.25},
    {Line, 0.191, -0.05},
    {Move, 0.191, -0.05},
    {Line, 0.291, -0.05},
};
constexpr Step kStake[] = {{Move, 0, 0}, {Line, 1, 0},     {Move, 0.8, 0.2},  {Line, 0.8, -0.2},
                           {Move, 0, 0}, {Line, 0.5, 0.3}, {Line, 0.5, -0.3}, {Line, 0, 0}};
constexpr Step kOpenBox[] = {
    {Move, kLow, kLow}, {Line, kLow, kHigh}, {Line, kHigh, kHigh}, {Line, kHigh, kLow}, {Line, kLow, kLow}};
constexpr Step kFlaggedCircle[] = {
    {Move, 0, 0},      {Line, 1, 0},      {Box, 1, 0.5},     {Ellipse, 2, -0.5}, {Move, 1.7, -0.1},
    {Line, 1.7, -0.3}, {Line, 1.3, -0.3}, {Line, 1.3, -0.1}, {Move, 1.7, 0.1},   {Line, 1.3, 0.1},
    {Line, 1.3, 0.3},  {Line, 1.5, 0.3},  {Line, 1.5, 0.1},
};
constexpr Step kMeterBox[] = {PN10_SQUARE, {Move, -0.3, 0}, {Line, 0.3, 0}, {Move, 0.3, 0.25}, {Line, 0.3, -0.25}};

#define PN10_SPOKES(reach)                                                                                      \
  {Box, -0.5, 0.5}, {Ring, 0.5, -0.5}, {Move, 0, 0}, {Line, reach, reach}, {Move, 0, 0}, {Line, -reach, reach}, \
      {Move, 0, 0}, {Line, -reach, -reach}, {Move, 0, 0}, {                                                     \
    Line, reach, -reach                                                                                         \
  }
constexpr Step kSpokes[] = {PN10_SPOKES(kSpoke)};
constexpr Step kLongSpokes[] = {PN10_SPOKES(kLongSpoke)};

#undef PN10_SQUARE
#undef PN10_BOW_TIE
#undef PN10_LETTER_F
#undef PN10_SPOKES

template <size_t N>
constexpr Shape shape(const Step (&steps)[N]) {
  return {steps, static_cast<int32_t>(N)};
}

constexpr bool kTurned = true, kUpright = true, kHollow = true;

constexpr Symbol kSymbols[] = {
    {2, shape(kDisc), shape(kDisc), false, kUpright, kHollow},
    {3, shape(kSquare), shape(kSquare), false, false, kHollow},
    {4, shape(kSun), shape(kSun), false, kUpright, kHollow},
    {5, shape(kTriangle), shape(kTriangleMark), false, false, kHollow},
    {6, shape(kStar), shape(kStar), false, false, kHollow},
    {7, shape(kDiamond), shape(kDiamond), false, false, kHollow},
    {10, shape(kValve), shape(kValve), kTurned, false, kHollow},
    {11, shape(kRegulator), shape(kRegulator), kTurned, false, kHollow},
    {12, shape(kBracket), shape(kBracket), false, false, false},
    {13, shape(kHalfDisc), shape(kHalfDiscMark), false, false, false},
    {14, shape(kArrowCircle), shape(kArrowCircle), false, false, kHollow},
    {15, shape(kEndRegulator), shape(kEndRegulator), false, false, kHollow},
    {16, shape(kCrossedCircle), shape(kCrossedCircle), false, kUpright, kHollow},
    {101, shape(kRegulator), shape(kRegulator), false, false, kHollow},
    {102, shape(kFittingBox), shape(kFittingBox), false, false, kHollow},
    {103, shape(kRegulatorAndFitting), shape(kRegulatorAndFitting), false, false, kHollow},
    {104, shape(kDoubleBox), shape(kDoubleBox), false, false, kHollow},
    {105, shape(kStation), shape(kStation), false, false, kHollow},
    {106, shape(kStake), shape(kStake), false, false, kHollow},
    {107, shape(kOpenBox), shape(kOpenBox), false, false, kHollow},
    {108, shape(kFlaggedCircle), shape(kFlaggedCircle), false, false, kHollow},
    {109, shape(kMeterBox), shape(kMeterBox), false, false, kHollow},
    {110, shape(kSpokes), shape(kSpokes), false, false, kHollow},
    {111, shape(kLongSpokes), shape(kLongSpokes), false, false, kHollow},
};

constexpr int32_t kHighest = 111;

struct Index {
  int8_t row[kHighest + 1];
};

constexpr Index indexOfNumbers() {
  Index index{};
  for (int8_t& row : index.row) row = -1;
  for (size_t i = 0; i < sizeof kSymbols / sizeof *kSymbols; i++)
    index.row[kSymbols[i].number] = static_cast<int8_t>(i);
  return index;
}
constexpr Index kIndex = indexOfNumbers();

}  // namespace

const Symbol* symbolOf(int32_t number) {
  if (number < 0 || number > kHighest || kIndex.row[number] < 0) return nullptr;
  return &kSymbols[kIndex.row[number]];
}

}  // namespace pn10
