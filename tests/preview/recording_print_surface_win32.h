// A Letter-sized test printer (8 x 10.5 printable inches at 600 dots per inch) that records
// every page as an enhanced metafile and reads back the text drawn on it.
#pragma once

#include <algorithm>
#include <cstddef>
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
// device pixels) and the advance of each character.
struct TextRun {
    std::wstring text;
    int x = 0;
    int y = 0;
    int font_height = 0;
    std::vector<int> advances;

    // The width of the first `count` characters.
    int Width(std::size_t count) const {
        const auto end =
            advances.begin() + static_cast<std::ptrdiff_t>(std::min(count, advances.size()));
        return std::accumulate(advances.begin(), end, 0);
    }
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

// Reads a metafile's text runs, with the font height selected for each.
struct PageReader {
    std::map<DWORD, int> font_heights;  // by object-table index
    int font_height = 0;
    Page page;
};

// A named CALLBACK, not a lambda: on 32-bit Windows the callback must be stdcall.
inline int CALLBACK ReadRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data) {
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
        TextRun run{std::wstring(chars, text.nChars),
                    text.ptlReference.x,
                    text.ptlReference.y,
                    r.font_height,
                    {}};
        if (text.offDx != 0) {
            const auto* advances = reinterpret_cast<const INT*>(bytes + text.offDx);
            run.advances.assign(advances, advances + text.nChars);
        }
        r.page.push_back(std::move(run));
    }
    return 1;
}

inline Page ReadPage(HENHMETAFILE metafile) {
    PageReader reader;
    EnumEnhMetaFile(nullptr, metafile, ReadRecord, &reader, nullptr);
    return std::move(reader.page);
}

class RecordingPrintSurface : public PrintSurface {
  public:
    static constexpr int kDotsPerInch = 600;
    static constexpr int kWidth = 8 * kDotsPerInch;
    static constexpr int kHeight = 10 * kDotsPerInch + kDotsPerInch / 2;

    explicit RecordingPrintSurface(std::shared_ptr<PrintRecord> record,
                                   std::wstring device_name = L"Test Letter")
        : record_(std::move(record)),
          device_name_(std::move(device_name)),
          measure_(CreateCompatibleDC(nullptr)) {}
    ~RecordingPrintSurface() override {
        DiscardPage();
        DeleteDC(measure_);
    }
    RecordingPrintSurface(const RecordingPrintSurface&) = delete;
    RecordingPrintSurface& operator=(const RecordingPrintSurface&) = delete;

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
        if (metafile == nullptr) return false;
        record_->pending.push_back(ReadPage(metafile));
        DeleteEnhMetaFile(metafile);
        if (record_->on_page_end) record_->on_page_end(record_->pending.size());
        return true;
    }
    bool EndDoc() override {
        record_->documents.push_back(std::exchange(record_->pending, {}));
        return true;
    }
    void AbortDoc() override {
        DiscardPage();
        record_->pending.clear();
        ++record_->aborted;
    }

  private:
    void DiscardPage() {
        if (page_ != nullptr) DeleteEnhMetaFile(CloseEnhMetaFile(std::exchange(page_, nullptr)));
    }

    std::shared_ptr<PrintRecord> record_;
    std::wstring device_name_;
    HDC measure_;
    HDC page_ = nullptr;
};

}  // namespace corvid::preview::testing
