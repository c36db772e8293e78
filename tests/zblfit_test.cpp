// The tool that looks for texts without room on the screens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/files.h"
#include "kit/run_program.h"
#include "kit/temp_folder.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

/// A language file with another text in one row.
std::string With(std::string file, int row, const std::string& text) {
  std::size_t start = 0;
  for (int line = 0; line < row + 2; ++line) start = file.find('\n', start) + 1;
  return file.replace(start, file.find_first_of("\r\n", start) - start, text);
}

TEST(ZblfitTest, NamesEachTextThatIsCutOffAndItsRow) {
  const std::string english = ReadFile(ZORBIK_PROGRAM_DATA "/english.zbl");
  const std::string wide(40, 'M');
  const TempFolder folder;
  std::string bad = With(english, 4, wide + " name");  // a label
  bad = With(bad, 7, wide + " set");                   // a button
  bad = With(bad, 89, wide + " message");              // a message that the window cannot hold
  std::string lines;
  for (int line = 0; line < 9; ++line) lines += wide + " ";
  bad = With(bad, 84, lines + "locked");  // a text that is broken into lines
  const ProgramRun run = RunProgram(std::string(ZBLFIT " ") + ZORBIK_PROGRAM_DATA "/english.zbl " +
                                    folder.Make("bad.zbl", bad) + " " + ZORBIK_PROGRAM_DATA "/russian.zbl");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output,
              AllOf(HasSubstr("bad.zbl: row 004, in frmStart2: \"" + wide + " name\" is "),
                    HasSubstr("row 007, in frmStart2"), HasSubstr("row 089, in hra"), HasSubstr("pixels too wide"),
                    HasSubstr("row 084, in frmPoSt"), HasSubstr("pixels too high")));
  EXPECT_THAT(run.output, AllOf(Not(HasSubstr("english.zbl")), Not(HasSubstr("russian.zbl"))));
}

TEST(ZblfitTest, TellsOfAFileThatIsNoLanguage) {
  const TempFolder folder;
  const ProgramRun run = RunProgram(std::string(ZBLFIT " ") + folder.Make("short.zbl", "2\r\nEnglish\r\n"));
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output, HasSubstr("short.zbl"));
}

}  // namespace
