/** The subcommands; each stands in the file cmd_<name>.cpp. */
#ifndef PN10_HOST_COMMANDS_H
#define PN10_HOST_COMMANDS_H

#include "args.h"

namespace host {

Command sampleCommand();
Command importCommand();
Command infoCommand();
Command fieldsCommand();
Command setCommand();
Command renderCommand();
Command findCommand();
Command traceCommand();

}  // namespace host

#endif
