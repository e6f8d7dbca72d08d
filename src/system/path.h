// A path as the program holds it: UTF-8, with the backslash as the separator on
// every system. Only the file system turns it into what the machine wants, and
// shown_path.h into what people of a system write.
#pragma once

#include <string>
#include <string_view>

namespace marlowick {

class Path {
  public:
    Path() = default;
    explicit Path(std::string utf8) : text_(std::move(utf8)) {}

    // Backslashes and all.
    const std::string& text() const { return text_; }
    bool empty() const { return text_.empty(); }

    // The path with a piece of the program's own behind it, as it stands
    // (plain ASCII such as "\\characters\\" or "\\usertemp.iff").
    Path operator+(std::string_view literal) const;

    // The path, one backslash, and a name of one component that comes out of a game file, an
    // archive, a list or a person. gameName is a game text.
    // Raises 52 if the name could reach another folder or can't be a file name (isFileName).
    Path child(std::string_view gameName) const;

    // What follows the last backslash, as a game text.
    std::string fileName() const;

    // The folder of the path: everything before the last backslash.
    Path folder() const;

    bool operator==(const Path& other) const = default;

  private:
    std::string text_;
};

// A path as any program or person writes it, with slashes or backslashes and perhaps some at its
// end, as this program does.
Path pathOfText(std::string utf8);

// True if a game text can name a file in a folder. It can't if it is empty, ".", "..", only dots
// and blanks, a device name of Windows (with or without an extension), or holds a control
// character or one of \ / : * ? " < > |
bool isFileName(std::string_view gameName);

}  // namespace marlowick
