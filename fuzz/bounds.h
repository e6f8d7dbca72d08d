// What every fuzz target holds the program to beside not crashing: an input takes memory of at most
// eight times its bytes and 32 MiB, and at most a second. And how a target says that a property
// doesn't hold.
#pragma once

#include <cstddef>
#include <ctime>

namespace marlowick::fuzz {

// Ends the program with the words unless the condition holds, so that the input is kept.
void require(bool condition, const char* words);

// Watches over one input from its making to its end.
class Bounds {
  public:
    // size: the bytes of the input.
    explicit Bounds(std::size_t size);
    ~Bounds();
    Bounds(const Bounds&) = delete;
    Bounds& operator=(const Bounds&) = delete;

  private:
    std::clock_t start_;
};

// What is allocated while it lives isn't counted: the disk in memory isn't the program's.
class Uncounted {
  public:
    Uncounted();
    ~Uncounted();
    Uncounted(const Uncounted&) = delete;
    Uncounted& operator=(const Uncounted&) = delete;
};

}  // namespace marlowick::fuzz
