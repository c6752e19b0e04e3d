// quickview-demo: a three-page report in the preview window, shown modally, for the window
// tests.  quickview-demo OUT_FOLDER
// Writes OUT_FOLDER/report.txt (the report's text, Windows-1252, one LF per line, so that a
// byte offset is a caret offset of the window's text), then one line per ReportClicked
// event to OUT_FOLDER/clicks.txt ("COLUMN|LINE", UTF-8), and "closed" to standard output
// when the modal Show returns. Without a desktop the report goes to the report sink,
// which prints "sink: N characters".
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "preview/no_printer.h"
#include "preview/platform_quick_view_window.h"
#include "preview/quick_view.h"
#include "preview/report_sink.h"

using namespace corvid::preview;

namespace {

std::string Utf8(const std::string& cp1252) {
    if (cp1252.empty()) return {};
    std::wstring wide(cp1252.size(), L'\0');
    const int n = MultiByteToWideChar(1252, 0, cp1252.data(), static_cast<int>(cp1252.size()),
                                      wide.data(), static_cast<int>(wide.size()));
    std::string out(static_cast<std::size_t>(n) * 3, '\0');
    const int m =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), n, out.data(), n * 3, nullptr, nullptr);
    out.resize(static_cast<std::size_t>(m));
    return out;
}

void FillReport(lfQuickView& view) {
    view.SetReportWidth(64);
    view.SetLinesPerPage(20);
    int item = 0;
    for (int page = 1; page <= 3; ++page) {
        view.Add("Reporte de ventas - p\xE1gina " + std::to_string(page), alignments::kCentre);
        view.Add("", alignments::kLeft);
        for (int row = 1; view.Linea() < 19 && !(page == 3 && row > 8); ++row) {
            ++item;
            char text[80];
            std::snprintf(text, sizeof text, "Item %03d  Art\xED" "culo n\xFA" "mero %d", item, item);
            view.Add(text, alignments::kLeft);
            std::snprintf(text, sizeof text, "Bs %d,%02d", item * 13, item % 100);
            if (row % 4 == 0) view.Add(text, alignments::kRight);
        }
    }
    view.Add("Fin del reporte", alignments::kCentre);
}

}  // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    InstallPlatformQuickViewWindow();
    ReplaceReportSink(
        [](const std::string& text) { std::printf("sink: %zu characters\n", text.size()); });
    lfQuickView view(std::make_shared<NoPrinter>());
    FillReport(view);
    view.SetReportClickedHandler([&](const std::string& line, std::int32_t column, bool&) {
        std::ofstream clicks(folder + "/clicks.txt", std::ios::app | std::ios::binary);
        clicks << column << "|" << Utf8(line) << "\n";
    });
    {
        view.LoadText();
        std::string text = view.textBox().text();
        std::string lines;
        for (char c : text) {
            if (c != '\r') lines += c;
        }
        std::ofstream(folder + "/report.txt", std::ios::binary) << lines;
    }
    std::fflush(stdout);
    view.ShowModal();
    std::printf("closed\n");
    return 0;
}
