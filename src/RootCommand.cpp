#include "RootCommand.h"

#include "core/StatusCommands.h"
#include "library/CheckIn.h"
#include "library/Context.h"
#include "library/Folder.h"
#include "library/Integration.h"
#include "library/Node.h"
#include "library/Profile.h"
#include "library/Search.h"
#include "library/Source.h"
#include "library/Team.h"
#include "library/Transcript.h"
#include "shell/Cat.h"
#include "shell/Delete.h"
#include "shell/Find.h"
#include "shell/Grep.h"
#include "shell/Ls.h"
#include "shell/Mkdir.h"
#include "shell/Mv.h"
#include "shell/ReplaceLines.h"
#include "shell/Rm.h"
#include "shell/Sed.h"
#include "shell/Stat.h"
#include "shell/Tee.h"

namespace orvane {

CommandConfiguration OrvaneCLI::configuration() {
    return {
        .commandName = "orvane-cli",
        .abstract = "Orvane CLI — access your personal context library from external agents.",
        .version = "0.4.0",
        .ungroupedSubcommands =
            {
                CommandType::of<Status>(),      CommandType::of<WhoAmI>(), CommandType::of<CheckIn>(),
                CommandType::of<Profile>(),     CommandType::of<Search>(), CommandType::of<Team>(),
                CommandType::of<Integration>(), CommandType::of<Node>(),   CommandType::of<Source>(),
                CommandType::of<Context>(),     CommandType::of<Folder>(), CommandType::of<Transcript>(),
                CommandType::of<Delete>(),      CommandType::of<Ls>(),     CommandType::of<Find>(),
                CommandType::of<Cat>(),         CommandType::of<Head>(),   CommandType::of<Tail>(),
                CommandType::of<Stat>(),        CommandType::of<Grep>(),   CommandType::of<Mkdir>(),
                CommandType::of<Tee>(),         CommandType::of<Sed>(),    CommandType::of<ReplaceLines>(),
                CommandType::of<Mv>(),          CommandType::of<Rm>(),     CommandType::of<Rmdir>(),
            },
    };
}

} // namespace orvane
