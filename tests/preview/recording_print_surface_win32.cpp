#include "recording_print_surface_win32.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace corvid::preview::testing {
namespace {

struct PageReader {
    std::map<DWORD, int> font_heights;  // by object-table index
    int font_height = 0;
    Page page;
};

int CALLBACK ReadRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data) {
    auto& reader = *reinterpret_cast<PageReader*>(data);
    const auto* bytes = reinterpret_cast<const BYTE*>(record);
    switch (record->iType) {
        case EMR_EXTCREATEFONTINDIRECTW: {
            const auto& font = *reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record);
            reader.font_heights[font.ihFont] = font.elfw.elfLogFont.lfHeight;
            break;
        }
        case EMR_SELECTOBJECT: {
            const auto& select = *reinterpret_cast<const EMRSELECTOBJECT*>(record);
            const auto font = reader.font_heights.find(select.ihObject);
            if (font != reader.font_heights.end()) reader.font_height = font->second;
            break;
        }
        case EMR_EXTTEXTOUTW: {
            const auto& out = *reinterpret_cast<const EMREXTTEXTOUTW*>(record);
            const auto* chars = reinterpret_cast<const wchar_t*>(bytes + out.emrtext.offString);
            TextRun run{std::wstring(chars, out.emrtext.nChars),
                        out.emrtext.ptlReference.x,
                        out.emrtext.ptlReference.y,
                        reader.font_height,
                        {}};
            if (out.emrtext.offDx != 0) {
                const auto* advances = reinterpret_cast<const INT*>(bytes + out.emrtext.offDx);
                run.advances.assign(advances, advances + out.emrtext.nChars);
            }
            reader.page.push_back(std::move(run));
            break;
        }
        default:
            break;
    }
    return 1;
}

Page ReadPage(HENHMETAFILE metafile) {
    PageReader reader;
    EnumEnhMetaFile(nullptr, metafile, ReadRecord, &reader, nullptr);
    return std::move(reader.page);
}

}  // namespace

int TextRun::Width(std::size_t count) const {
    const auto end =
        advances.begin() + static_cast<std::ptrdiff_t>(std::min(count, advances.size()));
    return std::accumulate(advances.begin(), end, 0);
}

RecordingPrintSurface::RecordingPrintSurface(std::shared_ptr<PrintRecord> record,
                                             std::wstring device_name)
    : record_(std::move(record)),
      device_name_(std::move(device_name)),
      measure_(CreateCompatibleDC(nullptr)) {}

RecordingPrintSurface::~RecordingPrintSurface() {
    DiscardPage();
    DeleteDC(measure_);
}

bool RecordingPrintSurface::StartDoc(const std::wstring&) {
    record_->pending.clear();
    return !record_->refuse_jobs;
}

HDC RecordingPrintSurface::StartPage() {
    page_ = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    return page_;
}

bool RecordingPrintSurface::EndPage() {
    HENHMETAFILE metafile = CloseEnhMetaFile(page_);
    page_ = nullptr;
    if (metafile == nullptr) return false;
    record_->pending.push_back(ReadPage(metafile));
    DeleteEnhMetaFile(metafile);
    if (record_->on_page_end) record_->on_page_end(record_->pending.size());
    return true;
}

bool RecordingPrintSurface::EndDoc() {
    record_->documents.push_back(std::move(record_->pending));
    record_->pending.clear();
    return true;
}

void RecordingPrintSurface::AbortDoc() {
    DiscardPage();
    record_->pending.clear();
    ++record_->aborted;
}

void RecordingPrintSurface::DiscardPage() {
    if (page_ == nullptr) return;
    DeleteEnhMetaFile(CloseEnhMetaFile(page_));
    page_ = nullptr;
}

}  // namespace corvid::preview::testing
