#pragma once

#include <array>
#include <string_view>
#include <vector>

// Buttons of the program's task dialogs: a question offers the buttons whose bits are in its mask,
// with these captions, and answers with the bit of the button pressed.
namespace TaskDialogButtons {

inline constexpr unsigned kOk = 1;
inline constexpr unsigned kYes = 2;
inline constexpr unsigned kNo = 4;
inline constexpr unsigned kCancel = 8;
inline constexpr unsigned kYesToAll = 16;
inline constexpr unsigned kNoToAll = 32;
// Not a button: set in an answer that holds for every later question of the same run.
inline constexpr unsigned kForAll = 64;

struct Button {
    unsigned bit;
    std::u16string_view caption;
};

inline constexpr std::array<Button, 6> kCaptions = {{
    {kOk, u"Ok"},
    {kYes, u"Ano"},
    {kNo, u"Ne"},
    {kCancel, u"Zrušit"},
    {kYesToAll, u"Ano všem"},
    {kNoToAll, u"Ne všem"},
}};

// The buttons of `mask`, in the order of the table.
inline std::vector<Button> ButtonsOf(unsigned mask) {
    std::vector<Button> buttons;
    for (const Button& button : kCaptions) {
        if ((mask & button.bit) != 0) buttons.push_back(button);
    }
    return buttons;
}

}  // namespace TaskDialogButtons
