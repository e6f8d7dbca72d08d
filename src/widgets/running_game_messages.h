// What a person is told and asked while the game runs: it keeps what it has read of the files that
// the program saves, and writes them too.
#pragma once

namespace marlowick {

// Says that the game runs, where a sim is opened.
void tellGameRuns();

// True if the game doesn't run, or if the person wants to save all the same; Enter means No. Asked
// behind a command's own question and before its first write.
bool mayWriteNow();

}  // namespace marlowick
