#pragma once

// Every undo command of the record view, and the producer that pushes them.
#include "Views/Commands/ChangeTriggerCommand.h"
#include "Views/Commands/ChannelCommands.h"
#include "Views/Commands/CommandIds.h"
#include "Views/Commands/MarkerCommands.h"
#include "Views/Commands/SplitterCommands.h"
#include "Views/Commands/ViewCommands.h"
