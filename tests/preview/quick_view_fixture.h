// A report on a fake printer, with in-memory settings and recorded prompts installed.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "fake_printer.h"
#include "port/memory_settings_source.h"
#include "port/recording_user_prompts.h"
#include "preview/quick_view.h"

namespace corvid::preview::testing {

class QuickViewTest : public ::testing::Test {
  protected:
    QuickViewTest() : previous_prompts_(port::ReplaceUserPrompts(prompts_)) {}
    ~QuickViewTest() override { port::ReplaceUserPrompts(previous_prompts_); }

    void SetViewSetting(const std::string& key, const std::string& value) {
        settings_->SetUserValue("ORV", "FVIEW", key, value);
    }
    std::unique_ptr<lfQuickView> MakeView() { return std::make_unique<lfQuickView>(printer_); }
    // The report text as the window would show it.
    static std::string Shown(lfQuickView& view) {
        view.LoadText();
        return view.textBox().text();
    }

    port::ScopedSettingsSource settings_;
    std::shared_ptr<port::RecordingUserPrompts> prompts_ =
        std::make_shared<port::RecordingUserPrompts>();
    std::shared_ptr<FakePrinter> printer_ = std::make_shared<FakePrinter>();

  private:
    std::shared_ptr<port::UserPrompts> previous_prompts_;
};

}  // namespace corvid::preview::testing
