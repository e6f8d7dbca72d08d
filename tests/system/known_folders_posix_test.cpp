#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "system/known_folders.h"

namespace marlowick {
namespace {

// Puts another text into the environment until its end.
class Home {
  public:
    explicit Home(const char* home) : before_(std::getenv("HOME")) {
        home == nullptr ? ::unsetenv("HOME") : ::setenv("HOME", home, 1);
    }
    ~Home() { ::setenv("HOME", before_.c_str(), 1); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

  private:
    std::string before_;
};

TEST(KnownFoldersTest, TheHomeFolderIsThatOfTheEnvironment) {
    const Home home("/home/some one//");
    EXPECT_EQ(homeFolder().text(), "\\home\\some one");
}

TEST(KnownFoldersTest, WithoutOneItIsThatOfTheUser) {
    const Home home(nullptr);
    std::string expected = ::getpwuid(::geteuid())->pw_dir;
    for (char& c : expected) {
        c = c == '/' ? '\\' : c;
    }
    EXPECT_EQ(homeFolder().text(), expected);
}

TEST(KnownFoldersTest, TheLoginNameIsTheUsers) {
    EXPECT_EQ(loginName(), ::getpwuid(::geteuid())->pw_name);
}

TEST(KnownFoldersTest, WindowsHasTheOthers) {
    EXPECT_TRUE(savedGamesFolder().empty());
    EXPECT_TRUE(documentsFolder().empty());
    EXPECT_TRUE(programDataFolder().empty());
}

}  // namespace
}  // namespace marlowick
