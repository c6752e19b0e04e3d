// lfQuickView: the report preview. The host (or the session in test mode) sets the width and
// paging, adds lines one by one (aligned, with automatic page breaks), shows the report and
// may print it. Lines are kept in a CStringBuffer until the report is shown, then go
// straight into the text box. The printer's font is fitted to the report width, and the
// printer itself is a PrinterDevice given at creation (by default the process's printer).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "preview/printer_device.h"
#include "preview/quick_view_window.h"
#include "preview/report_click_target.h"
#include "preview/string_buffer.h"
#include "preview/text_box.h"
#include "preview/view_settings.h"

namespace corvid::preview {

// Alignments of Add.
namespace alignments {
inline constexpr std::int32_t kLeft = 0;
inline constexpr std::int32_t kRight = 1;
inline constexpr std::int32_t kCentre = 2;
}  // namespace alignments

class lfQuickView {
  public:
    // linesPerPage of a report without paging.
    static constexpr std::int16_t kNoPaging = 32767;

    // Reads the "FVIEW" settings and fits the printer to 120 columns. The window comes from
    // the process-wide factory, if one is installed.
    explicit lfQuickView(std::shared_ptr<PrinterDevice> printer = DefaultPrinter());
    lfQuickView(const lfQuickView&) = delete;
    lfQuickView& operator=(const lfQuickView&) = delete;

    // Spaces before every printed line; a negative margin raises 0x80040005.
    std::int16_t LeftMargin() const { return leftMargin_; }
    void SetLeftMargin(std::int16_t margin);

    void SetNotify(std::shared_ptr<ReportClickTarget> target) { notifyTarget_ = std::move(target); }
    void SetNumeroPagina(std::int16_t page) { pageNumber_ = page; }
    void SetLinesPerPage(std::int16_t lines) { linesPerPage_ = lines; }
    // Chooses the printer font size once and for all: width fitting stops changing it.
    void SetPrintFontSize(std::int16_t size);
    // Fits the printer font and the page length to `width` columns. False when the font was
    // chosen explicitly, when the printer fails, or when the person accepts a report that
    // may not print whole (the page length is then left as it was).
    bool SetReportWidth(std::int16_t width);

    // Adds one report line: alignments::kLeft, kRight or kCentre (any other value adds an
    // empty line). A right-aligned text wider than the report raises error 5.
    void Add(const std::string& text, std::int32_t alignment);
    void PageBreak();
    // Moves the buffered text into the text box.
    void LoadText();

    std::int16_t Linea() const { return currentLine_; }
    std::int16_t Pagina() const { return pageNumber_; }
    std::int16_t LineasPagina() const;

    // Prints the text box's text: page-break lines start a new page, lines get the left
    // margin; a VERIFONE device gets each line as a carriage return and exactly 40 columns.
    // A printer error (482, also when no printer is installed) abandons the job and is raised.
    void PrintListBox();

    // Shows the report in its window; modal returns when the window is closed or hidden.
    // Without a window the text is loaded and handed to the report sink (report_sink.h).
    void Show(bool modal);
    void ShowModal() { Show(true); }
    void Hide();
    void SetWindow(std::shared_ptr<QuickViewWindow> window) { window_ = std::move(window); }
    // Called after each line added to the shown text box, so that a window on screen can
    // show it too.
    void SetTextAddedListener(std::function<void()> listener) {
        textAddedListener_ = std::move(listener);
    }

    // The ReportClicked event: the clicked line, the caret's column in it and a cancel flag
    // the handler may set. The published object connects its event sinks here.
    using ReportClickedHandler =
        std::function<void(const std::string& line, std::int32_t column, bool& cancel)>;
    void SetReportClickedHandler(ReportClickedHandler handler) {
        reportClicked_ = std::move(handler);
    }
    // Raises ReportClicked; unless a handler cancels, tells the notify target too (whose
    // errors are ignored: a failing host must not break the window).
    void RaiseReportClicked(const std::string& line, std::int32_t column);

    // State the window works with.
    TextBox& textBox() { return textBox_; }
    const TextBox& textBox() const { return textBox_; }
    bool loaded() const { return loaded_; }
    bool printing() const { return printing_; }
    // Asks a running print to stop; it aborts its job at the next line.
    void StopPrinting() { printing_ = false; }
    bool printFontFixed() const { return printFontFixed_; }
    // The printer-font dialog's choice also stops automatic fitting.
    void FixPrintFont() { printFontFixed_ = true; }
    const std::shared_ptr<ReportClickTarget>& notifyTarget() const { return notifyTarget_; }
    PrinterDevice& printer() { return *printer_; }
    std::int16_t reportWidth() const { return reportWidth_; }

  private:
    void AddLine(const std::string& line);
    double FitFontSize(std::int16_t columns);
    bool AcceptsSmallFont();
    void PrintLines(const std::string& text);

    std::shared_ptr<PrinterDevice> printer_;
    std::shared_ptr<QuickViewWindow> window_;
    std::int16_t currentLine_ = 1;
    std::int16_t pageNumber_ = 1;
    std::int16_t reportWidth_ = 120;
    bool appendNewLine_ = true;
    bool textAdded_ = false;
    std::int16_t linesPerPage_ = 0;
    std::string fontName_ = "Courier New";
    bool printing_ = false;
    bool printFontFixed_ = false;
    std::shared_ptr<ReportClickTarget> notifyTarget_;
    ReportClickedHandler reportClicked_;
    std::int16_t leftMargin_ = 0;
    ViewSettings settings_;
    std::optional<CStringBuffer> buffer_;
    bool loaded_ = false;
    TextBox textBox_;
    std::function<void()> textAddedListener_;
};

}  // namespace corvid::preview
