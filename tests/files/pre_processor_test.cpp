#include <filesystem>
#include <fstream>

#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

// It is offered for ending after two seconds, again when the offer was closed, and leaves nothing behind.
TEST_F(WorkbenchFixture, APreProcessorThatHangsCanBeEnded) {
    std::ofstream(Path("hang.MK4")) << "#!/bin/sh\necho x > \"$1.~ppERR\"\nsleep 300\n";
    fs::permissions(Path("hang.MK4"), fs::perms::owner_all);
    PreProcessor& import = Workbench->Import;
    PreProcessorWindow& window = import.Window;
    import.PreProcessorFolder = Folder + "/";
    import.RefreshPreProcessors();
    Platform.Programs.GiveUpAfter = std::chrono::milliseconds{0};
    Platform.System.Watch(window.frmPreProcessor);
    Platform.Dialogs.FileAnswers.push_back({false, Path("part.nc")});
    std::vector<bool> offered;
    for (const int wait : {1999, 1, 2000}) {
        Platform.System.Events.emplace_back([&, wait] {
            Platform.System.Advance(wait);
            offered.push_back(window.frmPreProcessor.Visible && window.cmdAbort.Visible);
            if (offered.size() == 2) Platform.System.Press(27);
        });
    }
    Platform.System.Events.emplace_back([&] { import.mnuPP_Click(0); });  // one at a time
    Platform.System.Events.emplace_back([&] { window.cmdAbort.Click(); });
    import.mnuPP_Click(0);
    EXPECT_EQ(offered, (std::vector<bool>{false, true, true}));
    EXPECT_FALSE(window.frmPreProcessor.Visible);
    EXPECT_FALSE(fs::exists(Path("part.nc.~ppERR")));
    EXPECT_TRUE(Platform.Dialogs.FileAnswers.empty());
    EXPECT_EQ(Workbench->Store.LineCount(), 0);
}

}  // namespace

}  // namespace kvt::test
