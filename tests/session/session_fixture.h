// A session on a scripted line, with in-memory settings and a fake clock.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "host/library_settings.h"
#include "session/printer_fiscal.h"
#include "session/scripted_line.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"

namespace corvid::session::testing {

class SessionTest : public ::testing::Test {
  protected:
    SessionTest()
        : fakeClock_(std::make_shared<automation::FakeClock>()),
          clock_(fakeClock_),
          line_(std::make_shared<ScriptedLine>(*fakeClock_)) {}

    void Set(const std::string& key, const std::string& value,
             const std::string& section = host::kSessionSection) {
        settings_->SetIniValue(host::kApplication, section, key, value);
    }

    // A session created now, from the settings set so far.
    PrinterFiscal& Session() {
        if (!session_) session_ = std::make_unique<PrinterFiscal>(line_);
        return *session_;
    }
    PrinterFiscal& OpenSession(std::int16_t port = 1) {
        line_->statusAnswers.push_back(Reads{StatusReply(0x60, 0x40)});
        Session().SetSerialPrinter("Z1F0000001");  // no S1 query at Abrir
        session_->Abrir(port);
        line_->writes.clear();
        return *session_;
    }

    host::ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> fakeClock_;
    automation::ScopedClock clock_;
    std::shared_ptr<ScriptedLine> line_;
    std::unique_ptr<PrinterFiscal> session_;
};

}  // namespace corvid::session::testing
