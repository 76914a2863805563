#pragma once

// Ids of the undo commands that merge with the one before them on the stack; a command of any
// other kind has the id -1 and never merges.
namespace CommandId {
enum : int { SetChanHeight = 0, LRSplitter = 1, ADSplitter = 2 };
}

// The depth of the undo stack of a record view: the oldest step is dropped beyond it.
constexpr int undoStackLimit = 500;
