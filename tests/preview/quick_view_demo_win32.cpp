// quickview-demo: a three-page report in the preview window, shown modally, for the window
// tests.  quickview-demo OUT_FOLDER
// Writes OUT_FOLDER/report.txt (the report's text, Windows-1252, one LF per line, so that a
// byte offset is a caret offset of the window's text), then one line per ReportClicked
// event to OUT_FOLDER/clicks.txt ("COLUMN|LINE", the line's bytes as received), and "closed"
// to standard output. Each click also adds a line "Clic en la columna N" to the shown report
// when the modal Show returns. Without a desktop the report goes to the report sink,
// which prints "sink: N characters".
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "preview/no_printer.h"
#include "preview/platform_quick_view_window.h"
#include "preview/quick_view.h"
#include "preview/report_sink.h"

using namespace corvid::preview;

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    InstallPlatformQuickViewWindow();
    ReplaceReportSink(
        [](const std::string& text) { std::printf("sink: %zu characters\n", text.size()); });
    lfQuickView view(std::make_shared<NoPrinter>());
    view.SetReportWidth(64);
    view.SetLinesPerPage(20);  // three pages, broken by the page length
    for (int item = 1; item <= 44; ++item) {
        char text[80];
        std::snprintf(text, sizeof text,
                      "Item %03d  Art\xED"
                      "culo n\xFA"
                      "mero %d",
                      item, item);
        view.Add(text, alignments::kLeft);
    }
    view.Add("Fin del reporte", alignments::kCentre);
    view.SetReportClickedHandler([&](const std::string& line, std::int32_t column, bool&) {
        std::ofstream(folder + "/clicks.txt", std::ios::app | std::ios::binary)
            << column << "|" << line << "\n";
        // A line added while the window is on screen shows up in it at once.
        view.Add("Clic en la columna " + std::to_string(column), alignments::kLeft);
    });
    view.LoadText();
    std::string lines = view.textBox().text();
    std::erase(lines, '\r');
    std::ofstream(folder + "/report.txt", std::ios::binary) << lines;
    std::fflush(stdout);
    view.ShowModal();
    std::printf("closed\n");
    return 0;
}
