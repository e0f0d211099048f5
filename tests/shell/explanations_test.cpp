#include <map>

#include "basic/text.h"
#include "interpreter/parameter_checks.h"
#include "program/explanations.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

class ExplanationsTest : public WorkbenchFixture {
protected:
    // What the check can write into the error column: the fixed texts, and each limit that any code of any machine has.
    std::map<std::string, int> Findings() {
        const Texts& texts = Workbench->Language;
        std::map<std::string, int> findings;
        for (int i = 1; i <= texts.ProgramErrorTexts.Size(); ++i)
            Add(findings, texts.ProgramErrorTexts.At(i));
        for (const ErrorText one : {text::No3d, text::MaximumLines}) Add(findings, texts.ErrorTexts(one));
        ProgramStore& store = Workbench->Store;
        store.LimitValues.Fill(false);
        const CodeLists& lists = Workbench->Lists;
        for (const MachineFacts& machine : Machines()) {
            store.Machine = machine.Model;
            for (const bool metric : {true, false}) {
                store.Metric = metric;
                for (const ListBox* list : {&lists.lstMK2Gcodes, &lists.lstMK4Gcodes, &lists.lstMK4Mcodes,
                                            &lists.lstF1Gcodes, &lists.lstF1Mcodes}) {
                    for (const std::string& entry : list->Entries()) AddLimits(findings, entry);
                }
            }
        }
        return findings;
    }

private:
    void Add(std::map<std::string, int>& findings, std::string_view finding) {
        if (!Trim(finding).empty())
            findings[std::string(finding)] = FindingNumber(finding, Workbench->Language);
    }
    void AddLimits(std::map<std::string, int>& findings, const std::string& entry) {
        const std::string cell =
            entry[0] == 'G' ? ' ' + entry.substr(1, 2) + ' ' : std::string(Left(entry, 4));
        const ParameterChecks checks(Workbench->Store, Workbench->Language);
        for (std::int32_t RowValues::*field :
             {&RowValues::X, &RowValues::Y, &RowValues::Z, &RowValues::F, &RowValues::H}) {
            for (const std::int32_t value : {-100'000, 100'000}) {
                RowValues values;
                for (std::int32_t RowValues::*other : {&RowValues::F, &RowValues::H}) values.*other = 20;
                values.*field = value;
                Add(findings, checks.Message(KeyOf(cell), values));
            }
        }
    }
};

TEST_F(ExplanationsTest, EveryFindingHasOneInBothLanguages) {
    std::map<int, std::string> english;
    for (const bool german : {false, true}) {
        if (german) Workbench->Modules.LoadLanguageModule(KVT_SOURCE_DIR "/languages/Deutsch.txt");
        const auto findings = Findings();
        EXPECT_GT(findings.size(), 50u);
        std::map<int, int> used;
        for (const auto& [finding, number] : findings) {
            SCOPED_TRACE(finding);
            ASSERT_GT(number, 0);
            ++used[number];
            const std::string explained = Explanation(finding, Workbench->Language);
            EXPECT_EQ(Split(explained, "\r\n").size(), 3u);
            for (const std::string_view line : Split(explained, "\r\n")) {
                EXPECT_GT(line.size() - std::min(line.size(), line.find(':')), 12u) << line;
                EXPECT_EQ(line.find('%'), std::string_view::npos) << line;
            }
            if (!german) {
                english[number] = explained;
            } else {
                EXPECT_NE(english[number].substr(0, 40), explained.substr(0, 40));
            }
        }
        // None is told of that the check does not know.
        EXPECT_EQ(used.size(), static_cast<std::size_t>(FindingCount));
    }
}

TEST_F(ExplanationsTest, ALimitIsNamedWithItsSide) {
    const Texts& texts = Workbench->Language;
    EXPECT_NE(Explanation("!X=-5999minimum", texts).find("allows: -5999 or more."), std::string::npos);
    EXPECT_NE(Explanation("!F= 499 maximum", texts).find("499 or less"), std::string::npos);
    EXPECT_EQ(Explanation("", texts), "");
    EXPECT_EQ(Explanation("!Q=1minimum", texts), "");
    EXPECT_EQ(Explanation("!X=", texts), "");
}

}  // namespace

}  // namespace kvt::test
