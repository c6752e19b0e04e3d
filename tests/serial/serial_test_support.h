// Shared set-up of the serial tests: in-memory settings, recorded prompts and a fixed clock,
// so nothing reads the machine's settings or opens a real message box.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "automation/clock.h"
#include "automation/fake_clock.h"
#include "port/memory_settings_source.h"
#include "port/port_dump.h"
#include "port/recording_user_prompts.h"
#include "port/user_prompts.h"

namespace corvid::port::testing {

class SerialTest : public ::testing::Test {
  protected:
    SerialTest()
        : clock_(std::make_shared<automation::FakeClock>()),
          scoped_clock_(clock_),
          prompts_(std::make_shared<RecordingUserPrompts>()),
          previous_prompts_(ReplaceUserPrompts(prompts_)) {}

    ~SerialTest() override {
        PortDump::Process().Close();
        ReplaceUserPrompts(previous_prompts_);
    }

    // Turns the dump on (or off) for the next failed open.
    void ConfigureDump(const std::string& debug, const std::string& file) {
        settings_->SetIniValue("ORV", "Config\\ModComm", "DEBUG", debug);
        settings_->SetIniValue("ORV", "Config\\ModComm", "DumpFile", file);
    }

    ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_;
    automation::ScopedClock scoped_clock_;
    std::shared_ptr<RecordingUserPrompts> prompts_;
    std::shared_ptr<UserPrompts> previous_prompts_;
};

}  // namespace corvid::port::testing
