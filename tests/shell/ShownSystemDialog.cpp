#include "tests/shell/ShownWidget.h"

#include <array>

#include <windows.h>

#include <dlgs.h>

namespace railwright::testing {
namespace {

QString TextOf(HWND window) {
    std::array<wchar_t, 1024> text{};
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return QString::fromWCharArray(text.data());
}

/// A file dialog of the system, or a question in front of one.
class ShownSystemDialog final : public ShownBox {
public:
    explicit ShownSystemDialog(HWND shown) : dialog(shown) {}

    int CountLook() override {
        const auto before = reinterpret_cast<std::intptr_t>(GetPropW(dialog, L"looks"));
        SetPropW(dialog, L"looks", reinterpret_cast<HANDLE>(before + 1));
        return static_cast<int>(before);
    }

    QString Seen() const override {
        constexpr int textOfBox = 0xFFFF;
        const HWND text = GetDlgItem(dialog, textOfBox);
        if (text == nullptr)
            return TextOf(dialog);
        QStringList buttons;
        for (const auto& [number, caption] : Buttons)
            if (GetDlgItem(dialog, number) != nullptr)
                buttons += caption;
        return QStringList{TextOf(dialog), TextOf(text).remove('\r'), "System", buttons.join(',')}.join('|');
    }

    void Press(const QString& button) override {
        for (const auto& [number, caption] : Buttons)
            if (button == caption)
                Command(number);
    }

    void Name(const QString& name, QString* before) override {
        HWND field = GetDlgItem(dialog, cmb13); // a combo box with an edit field, or just the field
        field = field == nullptr ? GetDlgItem(dialog, edt1) : field;
        if (before != nullptr)
            *before = TextOf(field);
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(qUtf16Printable(name)));
        Command(name.isEmpty() ? IDCANCEL : IDOK);
    }

    void GiveUp() override { Command(IDCANCEL); }

private:
    struct Button {
        int Number;
        const char* Caption;
    };
    static constexpr std::array Buttons = {Button{IDOK, "OK"}, Button{IDYES, "Yes"}, Button{IDNO, "No"},
                                           Button{IDCANCEL, "Cancel"}};

    void Command(int number) const {
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(number, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, number)));
    }

    HWND dialog;
};

/// Ignores dialogs with another dialog in front, which are disabled.
BOOL CALLBACK TakeDialogInFront(HWND window, LPARAM found) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != L"#32770" || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

} // namespace

std::unique_ptr<ShownBox> ShownBox::InFront() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialogInFront, reinterpret_cast<LPARAM>(&found));
    return found == nullptr ? ShownWidget::InFront() : std::make_unique<ShownSystemDialog>(found);
}

QString OverwriteQuestion(const QString& title, const QString&) {
    return title + "|File already exists.\nDo you want to replace it?|System|Yes,No";
}

} // namespace railwright::testing
