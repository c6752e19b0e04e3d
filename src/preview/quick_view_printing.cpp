// Printing the report text on the printer.
#include <algorithm>
#include <cctype>

#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "preview/quick_view.h"
#include "preview/vb_strings.h"

namespace corvid::preview {
namespace {

// A line-display device that takes each line as a carriage return and a fixed width.
constexpr const char* kVerifone = "VERIFONE";
constexpr std::int32_t kVerifoneColumns = 40;

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

}  // namespace

void lfQuickView::PrintListBox() {
    printError_.reset();
    try {
        printer_->PrintLine(" ");
        if (!printFontFixed_) SetReportWidth(reportWidth_);
        PrintLines(textBox_.text());
    } catch (const automation::VbError& error) {
        printing_ = false;  // a failing printer ends the print
        printError_ = error.description();
    }
}

void lfQuickView::PrintLines(const std::string& text) {
    std::int32_t position = 1;
    const std::int32_t total = Len(text);
    std::int32_t height = 0;  // running vertical position, kept as the print loop always has
    printing_ = true;
    while (position <= total) {
        if (!printing_) {
            printer_->KillDoc();
            return;
        }
        std::int32_t end = InStr(position, text, "\r\n");
        if (end == 0) end = total + 1;
        const std::string line = Mid(text, position, end - position);
        position = end + 2;
        if (Upper(printer_->DeviceName()) == kVerifone) {
            printer_->PrintText("\r" + Left(line + Space(kVerifoneColumns), kVerifoneColumns));
        } else if (!line.empty() && line.front() == '_') {
            printer_->NewPage();
        } else {
            printer_->PrintLine(Space(leftMargin_) + line);
            height = automation::CLng(height + printer_->TextHeight("N"));
        }
    }
    if (printing_) {
        printer_->EndDoc();
        printing_ = false;
    } else {
        printer_->KillDoc();
    }
}

}  // namespace corvid::preview
