// Opening and closing the port, and one command exchange: status request, framed block,
// the printer's answer, re-sending after NAK.
#include <cstdio>

#include "automation/clock.h"
#include "automation/conversions.h"
#include "automation/variant.h"
#include "automation/vb_error.h"
#include "host/trace_log.h"
#include "host/user_prompts.h"
#include "preview/quick_view.h"
#include "session/framing.h"
#include "session/printer_fiscal.h"
#include "session/process_state.h"
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

std::string Text(float value) { return automation::CStr(automation::Variant(value)); }
std::string Text(bool value) { return value ? "True" : "False"; }
std::string Byte(int code) { return std::string(1, static_cast<char>(code)); }

}  // namespace

void PrinterFiscal::Abrir(std::int16_t portNumber) {
    if (testMode_) {
        preview_ = std::make_shared<preview::lfQuickView>();
        return;
    }
    if (port_ != 0) {
        line_->Close(port_);
        port_ = 0;
    }
    port_ = portNumber;
    if (line_->Open(port_, "COM" + std::to_string(port_), kPortSettings) != 0) {
        throw automation::VbError(40001, "PrinterFiscal.Abrir", line_->ErrorText());
    }
    line_->SetLine(port_, kLineRts, 0);
    line_->SetLine(port_, kLineDtr, 1);
    GetStatus();
    if (SerialPrinter.empty()) {
        SerialPrinter = SerialFromStatusS1();
        SessionProcess().lastSerial = SerialPrinter;
    }
}

void PrinterFiscal::Cerrar() {
    if (testMode_) {
        if (preview_) preview_->ShowModal();
        return;
    }
    if (port_ != 0) {
        line_->Close(port_);
        port_ = 0;
    }
    auto& trace = host::TraceLog::Process();
    if (trace.IsDebug()) {
        if (auto view = trace.debug_view()) view->ShowModal();
    }
}

bool PrinterFiscal::AbrirGaveta() {
    // True on failure: hosts test it that way round.
    return Execute("w") != 0;
}

void PrinterFiscal::SendDirect(std::string_view sCommand) {
    if (testMode_) {
        if (preview_) preview_->Add("SendDirect: " + session::EscapeString(sCommand), 0);
        return;
    }
    const std::string block = session::BuildCommandBlock(sCommand);
    Trace("SendDirect: -> " + session::EscapeString(sCommand));
    line_->Write(port_, block);
}

void PrinterFiscal::ExecuteNoCheck(std::string_view sCmd) {
    Trace("ExecuteNoCheck: -> " + session::EscapeString(sCmd));
    if (testMode_) {
        if (preview_) preview_->Add(std::string(sCmd), 0);
    } else if (port_ != 0) {
        line_->Write(port_, session::BuildCommandBlock(sCmd));
    } else {
        pfError = pfCommError;
        DescripcionError = "PUERTO CERRADO";
    }
}

void PrinterFiscal::SendAck() {
    Trace("SendAck: -> [ACK]");
    line_->Write(port_, Byte(ACK));
    WaitForReply();
}

void PrinterFiscal::GetStatus() {
    result.clear();
    pfError = pfOk;
    STS1 = 0;
    STS2 = 0;
    if (skipChecks_) return;
    Trace("GetStatus: -> [ENQ]");
    line_->Write(port_, Byte(ENQ));
    WaitForReply();
    if (ready_) {
        if (result.size() >= 3) {
            STS1 = static_cast<unsigned char>(result[1]);
            STS2 = static_cast<unsigned char>(result[2]);
        }
        result.clear();
    } else {
        pfError = pfCommError;
    }
    Trace("GetStatus: <- pfError = " + std::to_string(pfError) + "; resultFlag = " +
          std::to_string(resultFlag) + ", STS1=" + HexText(STS1) + ", STS2= " + HexText(STS2));
}

void PrinterFiscal::WaitForReply() {
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

void PrinterFiscal::CollectReply() {
    if (skipChecks_) {
        pfError = pfOk;
        DescripcionError = "NO_STATUS_CHECK";
        resultFlag = ACK;
        return;
    }
    auto& clock = automation::CurrentClock();
    result.clear();
    const float t0 = clock.SecondsSinceMidnight();
    Trace("WaitForReply t = " + Text(t0) + "; timeout = " + std::to_string(timeOut_));
    ready_ = false;
    do {
        std::string chunk;
        if (line_->Read(port_, chunk, kReadSize) > 0) {
            Trace("<-" + session::EscapeString(chunk));
            const unsigned char first = static_cast<unsigned char>(chunk[0]);
            if (first == NAK) {
                Trace(" <- NAK");
                resultFlag = NAK;
                return;
            }
            if (first == ACK) {
                Trace(" <- ACK");
                resultFlag = ACK;
                return;
            }
            if (first == ENQ) {
                Trace(" <- ENQ");
                line_->Write(port_, Byte(ACK));
                Trace(" -> ACK");
                chunk.erase(0, 1);
            }
            std::size_t end = chunk.find(static_cast<char>(ETX));
            if (end != std::string::npos) {
                resultFlag = ETX;
            } else if ((end = chunk.find(static_cast<char>(ETB))) != std::string::npos) {
                resultFlag = ETB;
            } else if ((end = chunk.find(static_cast<char>(EOT))) != std::string::npos) {
                resultFlag = ETX;
            }
            if (end != std::string::npos) {
                const bool checkFollows = chunk[end] != static_cast<char>(EOT);
                const bool checkInChunk = end + 1 < chunk.size();
                chunk.resize(end + 1);
                ready_ = resultFlag == ETB || resultFlag == ETX;
                if (checkFollows && !checkInChunk) DiscardLateCheckByte();
            }
            result += chunk;
            Trace("WaitForReply (ready = " + Text(ready_) + "): <-" +
                  session::EscapeString(result));
        }
        // Before midnight's wrap the elapsed time is negative and the wait goes on.
        if (clock.SecondsSinceMidnight() - t0 >= static_cast<float>(timeOut_)) {
            if (!ready_) Trace("TIMEOUT!");
            break;
        }
        if (!ready_) line_->WaitReadable(port_, kWaitSliceMs);
    } while (!ready_);

    Trace("ResponseComplete: " + session::EscapeString(result));
    if (ready_) {
        if (resultFlag == ENQ) {
            pfError = pfPrinterError;
            DescripcionError = "Comando no reconocido";
        } else if (resultFlag == NAK) {
            pfError = pfPrinterError;
            DescripcionError = "Se recibi\xF3 NAK";
        } else {
            pfError = pfOk;
            DescripcionError = "Ok";
        }
    } else {
        pfError = pfCommError;
        Trace("WaitForReply Failed... COMM ERROR?");
        DescripcionError = "pfError de comunicacion";
    }
}

// A check byte that arrives in a read of its own would otherwise open the next reply
// (and be taken for STS1 by the next status request); it is discarded like one that
// arrives with its reply.
void PrinterFiscal::DiscardLateCheckByte() {
    if (!line_->WaitReadable(port_, kCheckByteWaitMs)) return;
    std::string check;
    if (line_->Read(port_, check, 1) > 0) Trace("<-" + session::EscapeString(check));
}

std::int16_t PrinterFiscal::Execute(std::string_view sCmd) {
    Trace("Execute: -> " + session::EscapeString(sCmd));
    if (testMode_) {
        if (preview_) preview_->Add(std::string(sCmd), 0);
        return static_cast<std::int16_t>(pfError);
    }
    if (port_ == 0) {
        pfError = pfCommError;
        DescripcionError = "PUERTO CERRADO";
        return 1;
    }
    std::int32_t attempts = kAttempts;
    bool done;
    do {
        done = true;
        GetStatus();
        if (pfError == pfOk) {
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
            } while (resultFlag == NAK && attempts != 0);
            if (pfError != pfOk) done = false;
        } else {
            // A silent printer costs no attempt: the status request is simply repeated.
            done = false;
        }
    } while (!done && attempts > 0);
    return static_cast<std::int16_t>(pfError);
}

std::string PrinterFiscal::explainSTS1() const { return ExplainStatus1(STS1); }
std::string PrinterFiscal::explainSTS2() const { return ExplainStatus2(STS2); }

std::int16_t PrinterFiscal::Reset() { return Execute("e"); }

Fields PrinterFiscal::NextStatusBlock() {
    line_->Write(port_, Byte(ACK));
    return {};
}

}  // namespace corvid::session
