/** Runs the built pn10 as a user does. */
#ifndef PN10_TESTS_HOST_RUN_H
#define PN10_TESTS_HOST_RUN_H

#include "support/support.h"

namespace pn10::test {

struct Result {
  int code = -1;
  std::string out, err;
};

/** Runs `pn10` with these words in a folder ("" here). */
Result run(const std::vector<std::string>& words, const std::string& folder = "");
/** Runs a whole line of the shell in a folder, `pn10` being the built program. */
Result shell(const std::string& line, const std::string& folder);

/** The number behind a text like "\"nodes\":{\"live\":"; a failure and -1 when it is not there. */
double numberBehind(const std::string& json, const std::string& text);

bool contains(const std::string& text, const std::string& part);

/** Names of the files in a folder and below, in order. */
std::vector<std::string> filesIn(const std::string& folder);

}  // namespace pn10::test

#endif
