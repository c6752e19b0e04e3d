// A real session, through the process's serial port table, on the simulated printer's
// pseudo-terminal.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "automation/dates.h"
#include "host/library_settings.h"
#include "serial/port_devices.h"
#include "session/printer_fiscal.h"
#include "sim/simulator.h"
#include "support/memory_settings_source.h"

namespace corvid::e2e {

class SessionOnSimulator : public ::testing::Test {
  protected:
    static constexpr std::int16_t kPort = 7;

    void SetUp() override {
        simulator_ = std::make_unique<sim::Simulator>(config_);
        simulator_->Start();
        serial::SetPortDevice(kPort, simulator_->SlavePath());
    }
    void TearDown() override {
        session_.reset();
        simulator_->Stop();
        serial::SetPortDevice(kPort, "");
    }

    // Opens a session created from the settings set so far and forgets the opening traffic.
    session::PrinterFiscal& Open() {
        session_ = std::make_unique<session::PrinterFiscal>();
        session_->Abrir(kPort);
        simulator_->transcript().Clear();
        return *session_;
    }
    // Printer clock, header, footer and cashier, as a shop sets them before the day.
    session::PrinterFiscal& Prepared() {
        using automation::Variant;
        session::PrinterFiscal& s = Open();
        EXPECT_EQ(s.SetDate(Variant(automation::DateSerial(2024, 5, 17))), 0);
        EXPECT_EQ(s.SetTime(Variant(automation::TimeSerial(10, 30, 0))), 0);
        EXPECT_EQ(s.SetHeader(Variant(std::int16_t{1}), "MI TIENDA, C.A."), 0);
        EXPECT_EQ(s.SetFooter(1, "GRACIAS POR SU COMPRA"), 0);
        EXPECT_EQ(s.Login(Variant(std::int16_t{7})), 0);
        return s;
    }

    sim::SimulatorConfig config_;
    host::ScopedSettingsSource settings_;
    std::unique_ptr<sim::Simulator> simulator_;
    std::unique_ptr<session::PrinterFiscal> session_;
};

}  // namespace corvid::e2e
