// What the preview window does, without the window: layout in twips, the buttons, the
// screen font, search, the margin entry, the clicked line and the keys. The platform
// window owns the controls; it hands each event to this form and then shows the form's
// state (selection, fonts, margin text, layout) again.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "preview/quick_view.h"

namespace corvid::preview {

// Twips.
inline constexpr std::int32_t kMinFormWidth = 11895;
inline constexpr std::int32_t kMinFormHeight = 3500;
inline constexpr std::int32_t kTextRightMargin = 48000;

struct QuickViewLayout {
    std::int32_t width = 0;  // the window, after the minimum is applied
    std::int32_t height = 0;
    std::int32_t button_top = 0;  // buttons and font images
    std::int32_t save_left = 0;   // "Guardar como"
    std::int32_t search_left = 0;
    std::int32_t print_left = 0;
    std::int32_t close_left = 0;
    std::int32_t text_width = 0;
    std::int32_t text_height = 0;
    std::int32_t label_top = 0;   // "Margen Izq.:"
    std::int32_t margin_top = 0;  // the margin entry and its up-down control
};

// The layout for a window of `width` x `height` twips.
QuickViewLayout LayoutQuickView(std::int32_t width, std::int32_t height);

// The margin entry's rule: empty is accepted; otherwise `value` is trimmed in place and
// may hold only digits, "," and ".", with "-" allowed as the first character.
bool IsValidNumber(std::string& value);

// The line under the caret of `text` (the characters between the control characters
// around it) and the caret's column in it; empty `found` when there is no line.
struct ClickedLine {
    bool found = false;
    std::string line;
    std::int32_t column = 0;
};
ClickedLine LineAtCaret(const std::string& text, std::int32_t caret);

class QuickViewForm {
  public:
    static constexpr std::int32_t kSmallestScreenFont = 5;
    static constexpr std::int32_t kLargestScreenFont = 23;

    // `hide` hides the window (a modal Show then returns). Reads "EditQView".
    QuickViewForm(lfQuickView& view, std::function<void()> hide);

    // Window events.
    void Activate();
    QuickViewLayout Resize(std::int32_t width, std::int32_t height);
    void PrintClicked();
    void CloseClicked();
    void PrinterFontClicked();
    void SearchClicked();
    void SaveClicked();
    void GrowFontClicked();
    void ShrinkFontClicked();
    // Leaving the margin entry; true when the entry was rejected (focus stays in it).
    bool MarginEntryLeft();
    // A click in the text (the caret already moved to the click).
    void TextClicked();
    void EscapePressed();
    void F3Pressed();
    // Selects the next match of `text` after the selection, wrapping to the top, or warns.
    void FindText(const std::string& text);

    // State the window shows.
    lfQuickView& view() { return view_; }
    bool editable() const { return editable_; }
    std::int32_t rightMargin() const { return rightMargin_; }
    const std::string& screenFontName() const { return screenFontName_; }
    std::int32_t screenFontSize() const { return screenFontSize_; }
    const std::string& marginText() const { return marginText_; }
    void SetMarginText(const std::string& text) { marginText_ = text; }
    const std::string& lastSearch() const { return lastSearch_; }

  private:
    lfQuickView& view_;
    std::function<void()> hide_;
    bool editable_ = false;
    std::int32_t rightMargin_ = kTextRightMargin;
    std::string screenFontName_ = "Courier New";
    std::int32_t screenFontSize_ = 10;
    std::string marginText_ = "0";
    std::string lastSearch_;
};

}  // namespace corvid::preview
