// Opening and closing the port, and one command exchange: status request, framed block,
// the printer's answer, re-sending after NAK.
#include "session/exchange.h"

#include <cstdio>

#include "automation/clock.h"
#include "automation/variant.h"
#include "automation/vb_error.h"
#include "host/user_prompts.h"
#include "session/framing.h"
#include "session/status_texts.h"

namespace corvid::session {

namespace {

constexpr const char* kPortSettings = "baud=9600 parity=E data=8 stop=1";
constexpr std::int32_t kReadSize = 4096;
constexpr std::int32_t kAttempts = 7;
// How long one blocking wait on the port lasts before the time-out is checked again.
constexpr std::int32_t kWaitSliceMs = 50;
// A byte takes about 1.2 ms at 9600 baud; the check byte is given ample time.
constexpr std::int32_t kCheckByteWaitMs = 50;
constexpr std::int16_t kLineDtr = 2, kLineRts = 3;
constexpr float kSecondsPerDay = 86400;

std::string Text(float value) { return automation::CStr(automation::Variant(value)); }
std::string Text(bool value) { return value ? "True" : "False"; }
std::string Byte(int code) { return std::string(1, static_cast<char>(code)); }

}  // namespace

Exchange::Exchange(std::shared_ptr<SerialLine> line, host::TraceLog& trace,
                   ExchangeSettings settings)
    : line_(std::move(line)), trace_(trace), settings_(settings) {}

void Exchange::Open(std::int16_t port) {
    // Kept even when the open fails: hosts that retry rely on the next Abrir closing it
    // first and on Execute using it, as they always have.
    port_ = port;
    if (line_->Open(port_, "COM" + std::to_string(port_), kPortSettings) != 0) {
        throw automation::VbError(40001, "PrinterFiscal.Abrir", line_->ErrorText());
    }
}

void Exchange::Close() {
    if (port_ != 0) {
        line_->Close(port_);
        port_ = 0;
    }
}

void Exchange::PrepareLines() {
    line_->SetLine(port_, kLineRts, 0);
    line_->SetLine(port_, kLineDtr, 1);
}

void Exchange::SendDirect(std::string_view command) {
    const std::string block = session::BuildCommandBlock(command);
    Trace("SendDirect: -> " + session::EscapeString(command));
    line_->Write(port_, block);
}

void Exchange::ExecuteNoCheck(std::string_view command) {
    if (port_ != 0) {
        line_->Write(port_, session::BuildCommandBlock(command));
    } else {
        SetOutcome(pfCommError, "PUERTO CERRADO");
    }
}

void Exchange::WriteAck() { line_->Write(port_, Byte(ACK)); }

void Exchange::SendAck() {
    Trace("SendAck: -> [ACK]");
    line_->Write(port_, Byte(ACK));
    WaitForReply();
}

void Exchange::GetStatus() {
    outcome_.result.clear();
    outcome_.pfError = pfOk;
    outcome_.STS1 = 0;
    outcome_.STS2 = 0;
    if (settings_.skipChecks) return;
    Trace("GetStatus: -> [ENQ]");
    line_->Write(port_, Byte(ENQ));
    WaitForReply();
    if (ready_) {
        if (outcome_.result.size() >= 3) {
            outcome_.STS1 = static_cast<unsigned char>(outcome_.result[1]);
            outcome_.STS2 = static_cast<unsigned char>(outcome_.result[2]);
        }
        outcome_.result.clear();
    } else {
        outcome_.pfError = pfCommError;
    }
    Trace("GetStatus: <- pfError = " + std::to_string(outcome_.pfError) +
          "; resultFlag = " + std::to_string(outcome_.resultFlag) +
          ", STS1=" + HexText(outcome_.STS1) + ", STS2= " + HexText(outcome_.STS2));
}

void Exchange::WaitForReply() {
    try {
        CollectReply();
    } catch (const automation::VbError& error) {
        host::CurrentUserPrompts().MessageBox(
            "Error " + std::to_string(error.number()) + " (" + error.description() +
                ") in procedure WaitForReply of M\xF3"
                "dulo de clase PrinterFiscal",
            host::PromptButtons::kOk, host::PromptIcon::kNone, "");
    }
}

void Exchange::CollectReply() {
    if (settings_.skipChecks) {
        SetOutcome(pfOk, "NO_STATUS_CHECK");
        outcome_.resultFlag = ACK;
        return;
    }
    auto& clock = automation::CurrentClock();
    outcome_.result.clear();
    const float t0 = clock.SecondsSinceMidnight();
    Trace("WaitForReply t = " + Text(t0) + "; timeout = " + std::to_string(settings_.timeOut));
    ready_ = false;
    do {
        std::string chunk;
        if (line_->Read(port_, chunk, kReadSize) > 0 && !TakeChunk(std::move(chunk))) return;
        // Before midnight's wrap the elapsed time is negative and the wait goes on.
        if (clock.SecondsSinceMidnight() - t0 >= static_cast<float>(settings_.timeOut) ||
            OutOfTime()) {
            if (!ready_) Trace("TIMEOUT!");
            break;
        }
        if (!ready_) line_->WaitReadable(port_, kWaitSliceMs);
    } while (!ready_);

    Trace("ResponseComplete: " + session::EscapeString(outcome_.result));
    SettleOutcome();
}

bool Exchange::TakeChunk(std::string chunk) {
    Trace("<-" + session::EscapeString(chunk));
    const unsigned char first = static_cast<unsigned char>(chunk[0]);
    if (first == NAK) {
        Trace(" <- NAK");
        outcome_.resultFlag = NAK;
        return false;
    }
    if (first == ACK) {
        Trace(" <- ACK");
        outcome_.resultFlag = ACK;
        return false;
    }
    if (first == ENQ) {
        Trace(" <- ENQ");
        line_->Write(port_, Byte(ACK));
        Trace(" -> ACK");
        chunk.erase(0, 1);
    }
    std::size_t end = chunk.find(static_cast<char>(ETX));
    if (end != std::string::npos) {
        outcome_.resultFlag = ETX;
    } else if ((end = chunk.find(static_cast<char>(ETB))) != std::string::npos) {
        outcome_.resultFlag = ETB;
    } else if ((end = chunk.find(static_cast<char>(EOT))) != std::string::npos) {
        outcome_.resultFlag = ETX;
    }
    if (end != std::string::npos) {
        const bool checkFollows = chunk[end] != static_cast<char>(EOT);
        const bool checkInChunk = end + 1 < chunk.size();
        chunk.resize(end + 1);
        ready_ = outcome_.resultFlag == ETB || outcome_.resultFlag == ETX;
        if (checkFollows && !checkInChunk) DiscardLateCheckByte();
    }
    outcome_.result += chunk;
    Trace("WaitForReply (ready = " + Text(ready_) + "): <-" +
          session::EscapeString(outcome_.result));
    return true;
}

void Exchange::SettleOutcome() {
    if (ready_) {
        if (outcome_.resultFlag == ENQ) {
            SetOutcome(pfPrinterError, "Comando no reconocido");
        } else if (outcome_.resultFlag == NAK) {
            SetOutcome(pfPrinterError, "Se recibi\xF3 NAK");
        } else {
            SetOutcome(pfOk, "Ok");
        }
    } else {
        outcome_.pfError = pfCommError;
        Trace("WaitForReply Failed... COMM ERROR?");
        outcome_.DescripcionError = "pfError de comunicacion";
    }
}

// A check byte that arrives in a read of its own would otherwise open the next reply
// (and be taken for STS1 by the next status request); it is discarded like one that
// arrives with its reply.
void Exchange::DiscardLateCheckByte() {
    if (!line_->WaitReadable(port_, kCheckByteWaitMs)) return;
    std::string check;
    if (line_->Read(port_, check, 1) > 0) Trace("<-" + session::EscapeString(check));
}

std::int16_t Exchange::Execute(std::string_view sCmd) {
    if (port_ == 0) {
        SetOutcome(pfCommError, "PUERTO CERRADO");
        return 1;
    }
    std::int32_t attempts = kAttempts;
    bool done;
    // Cleared on every way out, so that no later wait outside a command is cut short.
    struct BoundScope {
        std::optional<float>& start;
        ~BoundScope() { start.reset(); }
    } bound{boundStart_};
    if (settings_.maxWait > 0) boundStart_ = automation::CurrentClock().SecondsSinceMidnight();
    do {
        done = true;
        GetStatus();
        if (outcome_.pfError == pfOk) {
            do {
                --attempts;
                const std::string block = session::BuildCommandBlock(sCmd);
                Trace("SEND -> " + session::EscapeString(block));
                const std::int32_t written = line_->Write(port_, block);
                if (written != static_cast<std::int32_t>(block.size())) {
                    Trace("bytesWritten = " + std::to_string(written) +
                          "; Expected = " + std::to_string(block.size()));
                }
                WaitForReply();
            } while (outcome_.resultFlag == NAK && attempts != 0);
            if (outcome_.pfError != pfOk) done = false;
        } else {
            // A silent printer costs no attempt: the status request is simply repeated.
            done = false;
        }
        if (!done && OutOfTime()) {
            Trace("MAXWAIT! " + Text(static_cast<float>(settings_.maxWait)) + " s spent");
            SetOutcome(pfCommError, "Tiempo m\xE1ximo de espera agotado");
            break;
        }
    } while (!done && attempts > 0);
    return PfErrorAsInteger(outcome_);
}

Delivery Exchange::Deliver(std::string_view command) {
    if (port_ == 0) {
        SetOutcome(pfCommError, "PUERTO CERRADO");
        return Delivery::kNoAnswer;
    }
    GetStatus();
    if (outcome_.pfError != pfOk) return Delivery::kNoAnswer;
    const std::string block = session::BuildCommandBlock(command);
    for (std::int32_t attempt = 0; attempt < kAttempts; ++attempt) {
        Trace("DELIVER -> " + session::EscapeString(block));
        // A lone ACK or NAK ends the wait without a framed reply: anything else is unclear.
        outcome_.resultFlag = 0;
        line_->Write(port_, block);
        WaitForReply();
        if (ready_ || outcome_.resultFlag != NAK) break;
    }
    if (!ready_ && outcome_.resultFlag == ACK) {
        SetOutcome(pfOk, "Ok");
        return Delivery::kAccepted;
    }
    if (!ready_ && outcome_.resultFlag == NAK) {
        SetOutcome(pfPrinterError, "Se recibi\xF3 NAK");
        return Delivery::kRefused;
    }
    SetOutcome(pfCommError, "pfError de comunicacion");
    return Delivery::kUnclear;
}

bool Exchange::OutOfTime() const {
    if (!boundStart_) return false;
    float elapsed = automation::CurrentClock().SecondsSinceMidnight() - *boundStart_;
    // Unlike the time-out of one wait, the bound holds across midnight; a clock set back
    // a little is not taken for a day gone by.
    if (elapsed < -kSecondsPerDay / 2) elapsed += kSecondsPerDay;
    return static_cast<double>(elapsed) >= settings_.maxWait;
}

void Exchange::SetOutcome(std::int32_t error, const char* description) {
    outcome_.pfError = error;
    outcome_.DescripcionError = description;
}

}  // namespace corvid::session
