// What a person starts and waits for.
#pragma once

namespace marlowick {

// While one lives, a folder whose names have to be searched because a name stands there in other
// letter case, or not at all, is read once for all names that are looked up in it, whatever the
// disk. What this program makes there meanwhile is known; what another program makes there, under a
// name in other letter case, may be missed until the end; a file that lies in two folders whose
// names differ in case alone is the one of the folder that stood there first. What has gone is
// never an answer. They may nest. Does nothing on a system that looks names up by itself.
class OneCommand {
  public:
    OneCommand();
    ~OneCommand();
    OneCommand(const OneCommand&) = delete;
    OneCommand& operator=(const OneCommand&) = delete;

    // Ends all of them for as long as it lives: a person is asked something, and may do anything
    // before the answer.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        int commands_;
    };
};

}  // namespace marlowick
