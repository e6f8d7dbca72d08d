// A routine beside the least that the machine could do for the same work. Both run in turn in one
// process on the same data, and the median of their ratios is what counts: a busy machine slows
// both.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace marlowick::bench {

// One measurement. What its constructor makes on the disk its destructor takes away; neither is
// timed.
class Case {
  public:
    Case() = default;
    virtual ~Case() = default;
    Case(const Case&) = delete;
    Case& operator=(const Case&) = delete;

    // Before each run of either, not timed.
    virtual void prepare() {}
    // The least: the same bytes read, made and written, without any thought.
    virtual void floor() = 0;
    virtual void routine() = 0;
};

// A row of the table, with one case a size.
struct Row {
    std::string name;
    double toReach = 0;            // the ratio
    std::vector<int> sizes = {};   // none for a row of which only the growth counts
    int smallSize = 0;             // for a look whether the row still runs
    std::vector<int> growth = {};  // sizes a power of ten apart, to fit how the cost grows
    std::function<std::unique_ptr<Case>(int size)> make;
};

// All rows, in the order of the table.
std::vector<Row> rows();

// Each page of rows.
std::vector<Row> userFileRows();
std::vector<Row> archiveRows();
std::vector<Row> lookUpRows();
std::vector<Row> catalogueRows();
std::vector<Row> toolRows();
std::vector<Row> meshRows();
std::vector<Row> frameRows();

template <class Kind>
std::function<std::unique_ptr<Case>(int)> sized() {
    return [](int size) { return std::make_unique<Kind>(size); };
}

}  // namespace marlowick::bench
