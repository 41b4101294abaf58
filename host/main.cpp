// pn10: a gas network on the command line.
#include "args.h"
#include "commands.h"

namespace host {

const std::vector<Command>& commands() {
  static const std::vector<Command> all = {sampleCommand(), importCommand(), infoCommand(), fieldsCommand(),
                                           setCommand(),    renderCommand(), findCommand(), traceCommand()};
  return all;
}

}  // namespace host

int main(int argc, char** argv) { return host::runCommand(argc, argv); }
