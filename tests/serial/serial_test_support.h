// Shared set-up of the serial tests: in-memory settings, recorded prompts and a fixed clock,
// so nothing reads the machine's settings or opens a real message box.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "automation/clock.h"
#include "host/user_prompts.h"
#include "serial/port_dump.h"
#include "serial/serial_ports.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/recording_user_prompts.h"

namespace corvid::test_support {

class SerialTest : public ::testing::Test {
  protected:
    SerialTest()
        : clock_(std::make_shared<automation::FakeClock>()),
          scoped_clock_(clock_),
          prompts_(std::make_shared<host::RecordingUserPrompts>()),
          previous_prompts_(host::ReplaceUserPrompts(prompts_)) {}

    ~SerialTest() override {
        ports_.dump().Close();
        host::ReplaceUserPrompts(previous_prompts_);
    }

    // Turns the dump on (or off) for the next failed open.
    void ConfigureDump(const std::string& debug, const std::string& file) {
        settings_->SetIniValue("ORV", "Config\\ModComm", "DEBUG", debug);
        settings_->SetIniValue("ORV", "Config\\ModComm", "DumpFile", file);
    }

    host::ScopedSettingsSource settings_;
    serial::PortTable ports_;
    std::shared_ptr<automation::FakeClock> clock_;
    automation::ScopedClock scoped_clock_;
    std::shared_ptr<host::RecordingUserPrompts> prompts_;
    std::shared_ptr<host::UserPrompts> previous_prompts_;
};

}  // namespace corvid::test_support
