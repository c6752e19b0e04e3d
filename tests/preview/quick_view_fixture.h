// A report on a fake printer, with in-memory settings and recorded prompts installed.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "fake_printer.h"
#include "preview/quick_view.h"
#include "support/memory_settings_source.h"
#include "support/recording_user_prompts.h"

namespace corvid::preview::testing {

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
