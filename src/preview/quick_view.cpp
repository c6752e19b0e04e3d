#include "preview/quick_view.h"

#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "preview/checked_arithmetic.h"
#include "preview/report_sink.h"
#include "preview/vb_strings.h"

namespace corvid::preview {
namespace {

const std::string kLineEnd = "\r\n";

}  // namespace

lfQuickView::lfQuickView(std::shared_ptr<PrinterDevice> printer) : printer_(std::move(printer)) {
    if (auto factory = CurrentQuickViewWindowFactory()) window_ = factory();
    settings_ = ReadViewSettings();
    SetReportWidth(120);
}

void lfQuickView::SetLeftMargin(std::int16_t margin) {
    if (margin < 0) {
        throw automation::VbError(automation::vb_errors::kObjectErrorBase + 5,
                                  "lfQuickView::SetLeftMargin", "Argumento inv\xE1lido");
    }
    leftMargin_ = margin;
}

std::int16_t lfQuickView::LineasPagina() const { return Sub16(linesPerPage_, 1); }

void lfQuickView::Add(const std::string& text, std::int32_t alignment) {
    if (currentLine_ >= Sub16(linesPerPage_, 1)) PageBreak();
    std::string line;
    switch (alignment) {
        case alignments::kLeft:
            line = text;
            break;
        case alignments::kRight:
            line = Space(Sub32(reportWidth_, Len(text))) + text;
            break;
        case alignments::kCentre:
            if (Len(text) >= reportWidth_) {
                line = Left(text, reportWidth_);
            } else {
                const double half = (reportWidth_ - Len(text)) / 2.0;
                line = Space(static_cast<std::int32_t>(automation::RoundHalfEven(half))) + text;
            }
            break;
        default:
            break;
    }
    AddLine(line + " ");
    if (linesPerPage_ != kNoPaging) currentLine_ = Add16(currentLine_, 1);
}

void lfQuickView::PageBreak() {
    currentLine_ = 1;
    AddLine(Repeat(Add16(reportWidth_, 2), '_'));
    pageNumber_ = Add16(pageNumber_, 1);
}

// Into the shown text box the break goes before the line; into the buffer, after it.
void lfQuickView::AddLine(const std::string& line) {
    textAdded_ = true;
    const std::string lineEnd = appendNewLine_ ? kLineEnd : std::string();
    if (loaded_) {
        textBox_.SetSelStart(Add32(Len(textBox_.text()), 1));
        textBox_.SetSelLength(0);
        textBox_.SetSelText(lineEnd + line);
        if (textAddedListener_) textAddedListener_();
        return;
    }
    if (!buffer_) buffer_.emplace();
    buffer_->Append(line + lineEnd);
}

void lfQuickView::LoadText() {
    if (textBox_.text().empty()) {
        if (!buffer_) buffer_.emplace();
        textBox_.SetText(buffer_->Value());
    }
    if (textAdded_) {
        textBox_.SetSelStart(1);
        textAdded_ = false;
    }
    loaded_ = true;
}

void lfQuickView::Show(bool modal) {
    if (window_) {
        window_->Show(*this, modal);
        return;
    }
    LoadText();
    HandToReportSink(textBox_.text());
}

void lfQuickView::Hide() {
    if (window_) window_->Hide();
}

void lfQuickView::RaiseReportClicked(const std::string& line, std::int32_t column) {
    bool cancel = false;
    if (reportClicked_) reportClicked_(line, column, cancel);
    // Held for the call: the host may replace its target from inside it.
    const std::shared_ptr<ReportClickTarget> target = notifyTarget_;
    if (cancel || !target) return;
    try {
        target->ReportClicked(line, column);
    } catch (...) {
    }
}

}  // namespace corvid::preview
