// A Letter-sized test printer (8 x 10.5 printable inches at 600 dots per inch) that records
// every page as an enhanced metafile and reads back the text drawn on it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "preview/print_surface_win32.h"

namespace corvid::preview::testing {

// One piece of text drawn on a page: where, in which font height (the font's lfHeight, in
// device pixels) and how wide.
struct TextRun {
    std::wstring text;
    int x = 0;
    int y = 0;
    int font_height = 0;
    int width = 0;
};
using Page = std::vector<TextRun>;

struct PrintRecord {
    std::vector<std::vector<Page>> documents;  // jobs that ended, each a list of pages
    int aborted = 0;
    bool refuse_jobs = false;                      // the device refuses to start a job
    std::function<void(std::size_t)> on_page_end;  // with the number of the page in its job
    std::vector<Page> pending;                     // pages of the running job
};

// Reads a metafile's text runs, with the font height selected for each.
struct PageReader {
    std::map<DWORD, int> font_heights;  // by object-table index
    int font_height = 0;
    Page page;

    // A named CALLBACK, not a lambda: on 32-bit Windows the callback must be stdcall.
    static int CALLBACK Read(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data) {
        auto& r = *reinterpret_cast<PageReader*>(data);
        const auto* bytes = reinterpret_cast<const BYTE*>(record);
        if (record->iType == EMR_EXTCREATEFONTINDIRECTW) {
            const auto& font = *reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record);
            r.font_heights[font.ihFont] = font.elfw.elfLogFont.lfHeight;
        } else if (record->iType == EMR_SELECTOBJECT) {
            const auto font =
                r.font_heights.find(reinterpret_cast<const EMRSELECTOBJECT*>(record)->ihObject);
            if (font != r.font_heights.end()) r.font_height = font->second;
        } else if (record->iType == EMR_EXTTEXTOUTW) {
            const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
            const auto* chars = reinterpret_cast<const wchar_t*>(bytes + text.offString);
            const auto* advances = reinterpret_cast<const INT*>(bytes + text.offDx);
            r.page.push_back(
                {std::wstring(chars, text.nChars), text.ptlReference.x, text.ptlReference.y,
                 r.font_height,
                 text.offDx ? std::accumulate(advances, advances + text.nChars, 0) : 0});
        }
        return 1;
    }
};

class RecordingPrintSurface : public PrintSurface {
  public:
    static constexpr int kDotsPerInch = 600;
    static constexpr int kWidth = 8 * kDotsPerInch;
    static constexpr int kHeight = 10 * kDotsPerInch + kDotsPerInch / 2;

    explicit RecordingPrintSurface(std::shared_ptr<PrintRecord> record,
                                   std::wstring device_name = L"Test Letter")
        : record_(std::move(record)), device_name_(std::move(device_name)) {}
    ~RecordingPrintSurface() override {
        AbortPage();
        DeleteDC(measure_);
    }

    std::wstring DeviceName() const override { return device_name_; }
    PageGeometry Geometry() const override { return {kWidth, kHeight, kDotsPerInch, kDotsPerInch}; }
    HDC MeasureDc() override { return measure_; }
    bool StartDoc(const std::wstring&) override {
        record_->pending.clear();
        return !record_->refuse_jobs;
    }
    HDC StartPage() override {
        return page_ = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    }
    bool EndPage() override {
        HENHMETAFILE metafile = CloseEnhMetaFile(std::exchange(page_, nullptr));
        PageReader reader;
        EnumEnhMetaFile(nullptr, metafile, PageReader::Read, &reader, nullptr);
        DeleteEnhMetaFile(metafile);
        record_->pending.push_back(std::move(reader.page));
        if (record_->on_page_end) record_->on_page_end(record_->pending.size());
        return true;
    }
    bool EndDoc() override {
        record_->documents.push_back(std::exchange(record_->pending, {}));
        return true;
    }
    void AbortDoc() override {
        AbortPage();
        record_->pending.clear();
        ++record_->aborted;
    }

  private:
    void AbortPage() {
        if (page_ != nullptr) DeleteEnhMetaFile(CloseEnhMetaFile(std::exchange(page_, nullptr)));
    }

    std::shared_ptr<PrintRecord> record_;
    std::wstring device_name_;
    HDC measure_ = CreateCompatibleDC(nullptr);
    HDC page_ = nullptr;
};

}  // namespace corvid::preview::testing
