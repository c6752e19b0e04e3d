// The preview window's behaviour without the window.
#include "preview/quick_view_form.h"

#include <gtest/gtest.h>

#include "preview/quick_view_dialogs.h"
#include "quick_view_fixture.h"
#include "support/temp_folder.h"

namespace corvid::preview::testing {
namespace {

using host::PromptAnswer;

class AnsweringDialogs : public QuickViewDialogs {
  public:
    std::optional<FontChoice> ChooseFont(const FontChoice& preset, std::uint32_t) override {
        font_preset = preset;
        return font_answer;
    }
    std::optional<std::string> SaveFileName(const SaveDialogRequest& request) override {
        save_folder = request.initial_folder;
        return save_answer;
    }
    std::optional<FontChoice> font_answer;
    std::optional<std::string> save_answer;
    FontChoice font_preset;
    std::string save_folder;
};

class QuickViewFormTest : public QuickViewTest {
  protected:
    QuickViewFormTest() : previous_dialogs_(ReplaceQuickViewDialogs(dialogs_)) {}
    ~QuickViewFormTest() override { ReplaceQuickViewDialogs(previous_dialogs_); }

    // A shown report of three lines: "Alpha beta", "gamma ALPHA", "delta".
    QuickViewForm& ShownForm() {
        view_ = MakeView();
        view_->SetReportWidth(20);
        view_->SetLinesPerPage(lfQuickView::kNoPaging);
        for (const char* line : {"Alpha beta", "gamma ALPHA", "delta"}) {
            view_->Add(line, alignments::kLeft);
        }
        form_ = std::make_unique<QuickViewForm>(*view_, [this] { ++hides_; });
        form_->Activate();
        return *form_;
    }
    TextBox& box() { return view_->textBox(); }
    std::string Selected() {
        return box().text().substr(static_cast<std::size_t>(box().sel_start()),
                                   static_cast<std::size_t>(box().sel_length()));
    }
    void CaretAtEnd() { box().SetSelStart(static_cast<std::int32_t>(box().text().size())); }

    std::shared_ptr<AnsweringDialogs> dialogs_ = std::make_shared<AnsweringDialogs>();
    std::unique_ptr<lfQuickView> view_;
    std::unique_ptr<QuickViewForm> form_;
    int hides_ = 0;

  private:
    std::shared_ptr<QuickViewDialogs> previous_dialogs_;
};

// The window snaps to its minimum; the controls keep to the bottom right; the right margin
// rises only when the text is wider than it.
TEST_F(QuickViewFormTest, LayoutSnapsToTheMinimumAndFollowsTheBottomRight) {
    const QuickViewLayout small = LayoutQuickView(5000, 1200);
    EXPECT_EQ(small.width, 11895);
    EXPECT_EQ(small.height, 3500);
    const QuickViewLayout big = LayoutQuickView(15000, 9000);
    EXPECT_EQ(big.close_left - small.close_left, 15000 - 11895);
    EXPECT_EQ(big.margin_top - small.margin_top, 9000 - 3500);
    QuickViewForm& form = ShownForm();
    for (const auto& [width, margin] : {std::pair{30000, 48000}, {60000, 60000 - 465}}) {
        form.Resize(width, 5000);
        EXPECT_EQ(form.rightMargin(), margin) << width;
    }
}

// The entry takes digits, "," and ".", with "-" first only; it keeps the whole number and
// warns on anything else. Print takes the margin rounded half to even, else 0.
TEST_F(QuickViewFormTest, MarginEntryKeepsTheWholeNumberAndPrintRoundsIt) {
    QuickViewForm& form = ShownForm();
    for (const auto& [typed, rejected, shown] :
         {std::tuple{"-2.5", false, "-3"}, {"   ", true, "0"}, {" 4 ", false, "4"}}) {
        const std::size_t before = prompts_->prompts().size();
        form.SetMarginText(typed);
        EXPECT_EQ(form.MarginEntryLeft(), rejected) << typed;
        EXPECT_EQ(form.marginText(), shown) << typed;
        EXPECT_EQ(prompts_->prompts().size(), before + (rejected ? 1 : 0)) << typed;
    }
    for (const auto& [typed, margin] :
         {std::pair{"2.5", 2}, {"3.5", 4}, {"-3", 0}, {"99999", 0}, {"x", 0}}) {
        form.SetMarginText(typed);
        view_->SetLeftMargin(7);
        form.PrintClicked();
        EXPECT_EQ(view_->LeftMargin(), margin) << typed;
    }
}

TEST_F(QuickViewFormTest, PrinterErrorIsToldToThePersonOnce) {
    QuickViewForm& form = ShownForm();
    printer_->failing = {"PrintLine"};
    EXPECT_NO_THROW(form.PrintClicked());
    EXPECT_EQ(prompts_->texts(), std::vector<std::string>{"Printer error"});
    EXPECT_FALSE(view_->printing());
}

TEST_F(QuickViewFormTest, CloseDuringAPrintAsksAndOnlyNoStopsAndHides) {
    QuickViewForm& form = ShownForm();
    printer_->on_print_line = [&](const std::string& line) {
        if (line.find("Alpha") != std::string::npos) form.CloseClicked();
    };
    for (const auto& [answer, hides, last] :
         {std::tuple{PromptAnswer::kYes, 0, "enddoc"}, {PromptAnswer::kNo, 1, "killdoc"}}) {
        prompts_->QueueAnswer(answer);
        form.PrintClicked();
        EXPECT_EQ(hides_, hides);
        EXPECT_EQ(printer_->log.back(), last);
    }
    printer_->on_print_line = nullptr;
    form.CloseClicked();  // nothing printing: hides without asking
    EXPECT_EQ(hides_, 2);
    EXPECT_EQ(prompts_->prompts().size(), 2u);
}

// A search ignores case (accented capitals too) and wraps to the top from the end; an empty
// answer searches nothing.
TEST_F(QuickViewFormTest, SearchIgnoresCaseAndWrapsToTheTop) {
    QuickViewForm& form = ShownForm();
    CaretAtEnd();
    prompts_->QueueInput("alpha");
    form.SearchClicked();
    EXPECT_EQ(Selected(), "Alpha");
    prompts_->QueueInput("");
    form.SearchClicked();
    EXPECT_EQ(form.lastSearch(), "alpha");
    view_->Add("xx caf\xE9", alignments::kLeft);
    form.FindText("CAF\xC9");
    EXPECT_EQ(Selected(), "caf\xE9");
}

TEST_F(QuickViewFormTest, FontsScreenBetweenFiveAndTwentyThreeAndPrinterFromTheDialog) {
    QuickViewForm& form = ShownForm();
    for (int i = 0; i < 30; ++i) form.GrowFontClicked();
    EXPECT_EQ(form.screenFontSize(), 23);
    for (int i = 0; i < 30; ++i) form.ShrinkFontClicked();
    EXPECT_EQ(form.screenFontSize(), 5);
    printer_->font_name = "Lucida Console";
    form.PrinterFontClicked();  // cancelled
    EXPECT_EQ(dialogs_->font_preset.name, "Lucida Console");
    EXPECT_FALSE(view_->printFontFixed());
    dialogs_->font_answer = FontChoice{"Consolas", 11, false, true};
    form.PrinterFontClicked();
    EXPECT_EQ(printer_->font_name, "Consolas");
    EXPECT_TRUE(printer_->italic);
    EXPECT_EQ(form.screenFontName(), "Consolas");
    EXPECT_FALSE(view_->SetReportWidth(200));  // fitting no longer touches the font
    EXPECT_EQ(printer_->font_size, 11);
}

TEST_F(QuickViewFormTest, SaveWritesTheShownTextWhereTheDialogSays) {
    settings_->SetUserValue("Halewood", "General", "DataDir", "C:\\Datos");
    QuickViewForm& form = ShownForm();
    form.SaveClicked();  // cancelled: nothing written
    EXPECT_EQ(dialogs_->save_folder, "C:\\Datos");
    test_support::TempFolder folder;
    folder.Write("report.txt", "old contents that are longer than the report text, by far......");
    dialogs_->save_answer = (folder.path() / "report.txt").string();
    form.SaveClicked();
    EXPECT_EQ(folder.Read("report.txt"), box().text());
}

TEST_F(QuickViewFormTest, EditableOnlyWhenSetAndActivationLoadsOnce) {
    EXPECT_FALSE(ShownForm().editable());
    SetViewSetting("EditQView", "1");
    QuickViewForm& form = ShownForm();
    EXPECT_TRUE(form.editable());
    box().SetSelStart(5);
    form.Activate();  // already loaded: the caret stays
    EXPECT_EQ(box().sel_start(), 5);
}

}  // namespace
}  // namespace corvid::preview::testing
