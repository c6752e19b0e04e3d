// A report on a fake printer, with in-memory settings and recorded prompts installed. The
// printer has a fixed-pitch font whose advance is 12 units and line height 20 units
// per point, a page of 11520 x 15120 twips (8 x 10.5 inches), and a log of what is printed.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "automation/vb_error.h"
#include "preview/printer_device.h"
#include "preview/quick_view.h"
#include "support/memory_settings_source.h"
#include "support/recording_user_prompts.h"

namespace corvid::preview::testing {

class FakePrinter : public PrinterDevice {
  public:
    std::int16_t scale_mode = scale_modes::kTwips;
    double scale_width = 11520;
    double scale_height = 15120;
    std::string device_name = "HP LaserJet";
    // Sizes below this are refused: the size stays as it was.
    double smallest_size = 1;
    // Operations (by name, such as "NewPage") that raise a printer error.
    std::set<std::string> failing;
    // Called after every printed line.
    std::function<void(const std::string&)> on_print_line;

    // "line:<text>", "text:<text>", "newpage", "enddoc", "killdoc", in order.
    std::vector<std::string> log;
    std::string font_name;
    double font_size = 10;
    bool bold = true;
    bool italic = false;

    std::int16_t ScaleMode() override { return Checked("ScaleMode", scale_mode); }
    double ScaleWidth() override { return Checked("ScaleWidth", scale_width); }
    double ScaleHeight() override { return Checked("ScaleHeight", scale_height); }
    double TextWidth(const std::string& text) override {
        return Checked("TextWidth", static_cast<double>(text.size()) * font_size * 12);
    }
    double TextHeight(const std::string&) override { return Checked("TextHeight", font_size * 20); }

    std::string FontName() override { return font_name; }
    void SetFontName(const std::string& name) override { font_name = name; }
    double FontSize() override { return font_size; }
    void SetFontSize(double points) override {
        if (Checked("SetFontSize", points) >= smallest_size) font_size = points;
    }
    bool FontBold() override { return bold; }
    void SetFontBold(bool value) override { bold = value; }
    bool FontItalic() override { return italic; }
    void SetFontItalic(bool value) override { italic = value; }
    std::string DeviceName() override { return device_name; }

    void PrintLine(const std::string& text) override {
        log.push_back(Checked("PrintLine", "line:" + text));
        if (on_print_line) on_print_line(text);
    }
    void PrintText(const std::string& text) override {
        log.push_back(Checked("PrintText", "text:" + text));
    }
    void NewPage() override { log.push_back(Checked("NewPage", "newpage")); }
    void EndDoc() override { log.push_back(Checked("EndDoc", "enddoc")); }
    void KillDoc() override { log.push_back(Checked("KillDoc", "killdoc")); }

  private:
    template <typename T>
    T Checked(const std::string& operation, T value) {
        if (failing.count(operation)) throw automation::VbError(482, {}, "Printer error");
        return value;
    }
};

class QuickViewTest : public ::testing::Test {
  protected:
    QuickViewTest() : previous_prompts_(host::ReplaceUserPrompts(prompts_)) {}
    ~QuickViewTest() override { host::ReplaceUserPrompts(previous_prompts_); }

    void SetViewSetting(const std::string& key, const std::string& value) {
        settings_->SetUserValue("ORV", "FVIEW", key, value);
    }
    std::unique_ptr<lfQuickView> MakeView() { return std::make_unique<lfQuickView>(printer_); }
    // The report text as the window would show it.
    static std::string Shown(lfQuickView& view) {
        view.LoadText();
        return view.textBox().text();
    }

    host::ScopedSettingsSource settings_;
    std::shared_ptr<host::RecordingUserPrompts> prompts_ =
        std::make_shared<host::RecordingUserPrompts>();
    std::shared_ptr<FakePrinter> printer_ = std::make_shared<FakePrinter>();

  private:
    std::shared_ptr<host::UserPrompts> previous_prompts_;
};

}  // namespace corvid::preview::testing
