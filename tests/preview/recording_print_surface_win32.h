// A Letter-sized test printer (8 x 10.5 printable inches at 600 dots per inch) that records
// every page as an enhanced metafile and reads back the text drawn on it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "preview/print_surface_win32.h"

namespace corvid::preview::testing {

// One piece of text drawn on a page: where, in which font height (the font's lfHeight, in
// device pixels) and the advance of each character.
struct TextRun {
    std::wstring text;
    int x = 0;
    int y = 0;
    int font_height = 0;
    std::vector<int> advances;

    // The width of the first `count` characters.
    int Width(std::size_t count) const;
};
using Page = std::vector<TextRun>;

struct PrintRecord {
    // Jobs that ended, each a list of pages.
    std::vector<std::vector<Page>> documents;
    int aborted = 0;
    // The device refuses to start a job.
    bool refuse_jobs = false;
    // Called when a page ends, with the number of the page in its job.
    std::function<void(std::size_t)> on_page_end;
    // Pages of the running job.
    std::vector<Page> pending;
};

class RecordingPrintSurface : public PrintSurface {
  public:
    static constexpr int kDotsPerInch = 600;
    static constexpr int kWidth = 8 * kDotsPerInch;
    static constexpr int kHeight = 10 * kDotsPerInch + kDotsPerInch / 2;

    explicit RecordingPrintSurface(std::shared_ptr<PrintRecord> record,
                                   std::wstring device_name = L"Test Letter");
    ~RecordingPrintSurface() override;
    RecordingPrintSurface(const RecordingPrintSurface&) = delete;
    RecordingPrintSurface& operator=(const RecordingPrintSurface&) = delete;

    std::wstring DeviceName() const override { return device_name_; }
    PageGeometry Geometry() const override { return {kWidth, kHeight, kDotsPerInch, kDotsPerInch}; }
    HDC MeasureDc() override { return measure_; }

    bool StartDoc(const std::wstring& title) override;
    HDC StartPage() override;
    bool EndPage() override;
    bool EndDoc() override;
    void AbortDoc() override;

  private:
    void DiscardPage();

    std::shared_ptr<PrintRecord> record_;
    std::wstring device_name_;
    HDC measure_;
    HDC page_ = nullptr;
};

}  // namespace corvid::preview::testing
