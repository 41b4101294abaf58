// pn10: a gas network on the command line.
#include <pn10platform.h>

#include <cstdio>

#include "args.h"
#include "commands.h"
#include "output.h"

namespace host {

const std::vector<Command>& commands() {
  static const std::vector<Command> all = {sampleCommand(), importCommand(), infoCommand(), fieldsCommand(),
                                           setCommand(),    renderCommand(), findCommand(), traceCommand()};
  return all;
}

}  // namespace host

namespace {
/** A program in a script must not wait for somebody to close a box. */
void PN10_CALL printMessage(const char* text, const char*) { std::fprintf(stderr, "%s\n", host::utf8(text).c_str()); }
}  // namespace

int main(int argc, char** argv) {
  PnUseUtf8Terminal();
  PnSetMessageBox(printMessage);
  return host::runCommand(argc, argv);
}
