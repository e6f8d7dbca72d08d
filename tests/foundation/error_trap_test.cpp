#include "foundation/error_trap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "foundation/game.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

class ErrorTrapTest : public ::testing::Test {
  protected:
    test::TestFolder folder;
    test::ErrorRecorder recorder;
};

TEST_F(ErrorTrapTest, NotesNumberDescriptionModuleAndProcedure) {
    EXPECT_FALSE(trapped("modTest", "gsTest", [] { throw RuntimeError(53); }));
    EXPECT_EQ(glngErrorNumber, 53);
    EXPECT_EQ(gstrErrorDescription, "File not found");
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "modTest");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsTest");
}

TEST_F(ErrorTrapTest, ReportsNothingWhereNothingFails) {
    EXPECT_TRUE(trapped("modTest", "gsTest", [] {}));
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ErrorTrapTest, TheInnermostTrapTakesTheFailureAndTheCallerGoesOn) {
    bool wentOn = false;
    EXPECT_TRUE(trapped("outer", "gsOuter", [&] {
        EXPECT_FALSE(trapped("inner", "gsInner", [] { throw RuntimeError(5); }));
        wentOn = true;
    }));
    EXPECT_TRUE(wentOn);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "inner");
}

TEST_F(ErrorTrapTest, ARoutineWithoutCheckpointsReportsTheOneBeforeIt) {
    trapped("modTest", "gsFirst", [] { CheckpointNumber = 3000; });
    trapped("modTest", "gsSecond", [] { throw RuntimeError(5); });
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
}

TEST_F(ErrorTrapTest, OtherExceptionsGetAClassicNumber) {
    trapped("modTest", "gsTest", [] { throw std::bad_alloc(); });
    trapped("modTest", "gsTest", [] { throw std::length_error("too long"); });
    trapped("modTest", "gsTest", [] { throw 1; });
    ASSERT_EQ(recorder.reports().size(), 3U);
    EXPECT_EQ(recorder.reports()[0].number, 7);
    EXPECT_EQ(recorder.reports()[1].number, 7);
    EXPECT_EQ(recorder.reports()[2].number, 5);
}

TEST_F(ErrorTrapTest, IgnoredErrorsReachNoTrap) {
    EXPECT_FALSE(ignoringErrors([] { throw RuntimeError(76); }));
    EXPECT_TRUE(recorder.reports().empty());
    EXPECT_EQ(glngErrorNumber, 0);
}

TEST_F(ErrorTrapTest, OfSeveralStepsAllRunAndTheFirstFailureIsTold) {
    int runs = 0;
    const auto step = [&](int number) {
        return [&runs, number] {
            ++runs;
            return trapped("modTest", "gsTest", [number] {
                if (number != 0) {
                    throw RuntimeError(number);
                }
            });
        };
    };
    EXPECT_EQ(firstFailure({step(0), step(53), step(0), step(9)}), "Error 53 - File not found");
    EXPECT_EQ(runs, 4);
    // An earlier failure of another routine isn't told again.
    EXPECT_EQ(firstFailure({step(0), step(0)}), "");
}

TEST_F(ErrorTrapTest, TheReportHasTwelveLines) {
    ProgramFolder = Path("C:\\Marlowick");
    SimsPath = Path("C:\\Games\\The Sims");
    CheckpointNumber = 2000;
    trapped("modIFFsupport", "gsReadIFF", [] { throw RuntimeError(5); });
    EXPECT_EQ(errorReport(),
              "Marlowick - Version 3.0.5\r\n"
              "\r\n"
              "Error: 5\r\n"
              "Invalid procedure call or argument\r\n"
              "\r\n"
              "Module: modIFFsupport\r\n"
              "Procedure: gsReadIFF\r\n"
              "Location: 2000\r\n"
              "\r\n"
              "Install Path: C:\\Marlowick\r\n"
              "Sims Path: C:\\Games\\The Sims\r\n"
              "Neighborhoods Path: C:\\Games\\The Sims\r\n");
    NeighbourhoodsElsewhere = Path("C:\\Saved Games\\The Sims 25");
    EXPECT_TRUE(
        errorReport().ends_with("Sims Path: C:\\Games\\The Sims\r\n"
                                "Neighborhoods Path: C:\\Saved Games\\The Sims 25\r\n"));
}

TEST(RuntimeErrorTest, EveryClassicNumberHasItsDescription) {
    EXPECT_STREQ(errorDescription(5), "Invalid procedure call or argument");
    EXPECT_STREQ(errorDescription(9), "Subscript out of range");
    EXPECT_STREQ(errorDescription(62), "Input past end of file");
    EXPECT_STREQ(errorDescription(75), "Path/File access error");
    EXPECT_STREQ(errorDescription(321), "Invalid file format");
    EXPECT_STREQ(errorDescription(481), "Invalid picture");
    EXPECT_STREQ(errorDescription(4711), "Application-defined or object-defined error");
}

}  // namespace
}  // namespace marlowick
