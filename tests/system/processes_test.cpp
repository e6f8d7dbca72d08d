#include "system/processes.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>

namespace marlowick {
namespace {

using namespace std::literals;

std::string nameOf(std::string_view commandLine, std::string_view systemName) {
    return programName(commandLine, systemName);
}

TEST(ProcessesTest, AProgramGoesByTheLastPieceOfItsFirstArgument) {
    EXPECT_EQ(nameOf("C:\\Games\\The Sims\\Sims.exe\0-w\0"sv, "main"), "Sims.exe");
    EXPECT_EQ(nameOf("Z:/home/x/sims.EXE", "main"), "sims.EXE");
    EXPECT_EQ(nameOf("/usr\\bin/cat", "main"), "cat");
    EXPECT_EQ(nameOf("Sims.exe", "main"), "Sims.exe");
    EXPECT_EQ(nameOf("cat\0/x/Sims.exe\0"sv, "main"), "cat");
    EXPECT_EQ(nameOf("/usr/bin/", "main"), "");
}

TEST(ProcessesTest, OneWithoutArgumentsGoesByTheSystemsName) {
    EXPECT_EQ(nameOf("", "Sims.exe\n"), "Sims.exe");
    EXPECT_EQ(nameOf("\0x\0"sv, "C:\\Sims.exe\n"), "Sims.exe");
    EXPECT_EQ(nameOf("", ""), "");
}

TEST(ProcessesTest, TheProgramItselfIsOneOfThem) {
    const auto id = static_cast<std::uint32_t>(QCoreApplication::applicationPid());
    const std::string name =
        QFileInfo(QCoreApplication::applicationFilePath()).fileName().toStdString();
    const std::vector<RunningProgram> programs = runningPrograms();
    const auto own = std::find_if(programs.begin(), programs.end(),
                                  [&](const RunningProgram& one) { return one.id == id; });
    ASSERT_NE(own, programs.end());
    EXPECT_EQ(own->name, name);
}

TEST(ProcessesTest, AnotherListCanStandInItsPlace) {
    setRunningPrograms([] { return std::vector<RunningProgram>{{7, "Sims.exe"}}; });
    ASSERT_EQ(runningPrograms().size(), 1U);
    EXPECT_EQ(runningPrograms().front().id, 7U);
    setRunningPrograms({});
    EXPECT_GT(runningPrograms().size(), 1U);
}

}  // namespace
}  // namespace marlowick
