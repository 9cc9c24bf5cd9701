#pragma once

#include <string>

#include <QFont>
#include <QIcon>
#include <QPushButton>
#include <QScrollBar>
#include <QString>
#include <QWidget>

class QCheckBox;
class QLabel;
class QMenuBar;
class QRadioButton;

namespace railwright {

/// The position and size of a control in its container, in twips: 1440 per inch, 15 per pixel at 96 dpi.
struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// Converts twips to the toolkit's pixels.
QRect InPixels(const Place& place);
constexpr int InPixels(int twips) {
    return twips / 15;
}

struct FontStyle {
    bool Bold = false;
    bool Italic = false;
};

/// Returns the typeface of all controls: Arial or one of the same width.
QFont ControlFont(double points = 8.25, FontStyle style = {});
/// Returns the typeface of the report: Courier New or one of the same width.
QFont ReportFont();

/// Draws a focus mark on the control if it has the keyboard focus and the user has pressed a key.
void DrawFocus(QWidget& control);

/// Returns the name of a control in an array, such as "btnRemove(0)".
QString Indexed(const char* name, int index);

/// Sets the name, the position and the size of a control.
template <class Control>
Control* Placed(Control* control, const QString& name, const Place& place) {
    control->setObjectName(name);
    control->setGeometry(InPixels(place));
    return control;
}

QLabel* AddLabel(QWidget& container, const QString& name, const QString& caption, const Place& place,
                 const QFont& font = ControlFont());
/// Adds a label with several lines of text, aligned at the top left.
QLabel* AddHelpText(QWidget& container, const QString& name, const QString& text, const Place& place);
/// @param caption "&&" is shown as "&".
QPushButton* AddButton(QWidget& container, const QString& name, const QString& caption, const Place& place);
QCheckBox* AddCheckBox(QWidget& container, const QString& name, const QString& caption, const Place& place,
                       bool ticked);
QRadioButton* AddOption(QWidget& container, const QString& name, const QString& caption, const Place& place,
                        bool selected);

/// A horizontal scroll bar that can get the keyboard focus.
class ScrollBar : public QScrollBar {
public:
    struct Values {
        int Min, Max, LargeChange, SmallChange, Start;
    };
    /// @param purpose the name for screen readers.
    ScrollBar(QWidget& container, const QString& name, const QString& purpose, const Place& place,
              const Values& values);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// A button that Enter presses, as well as Space.
class Button : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// A label that acts as a button.
class LinkLabel final : public Button {
public:
    LinkLabel(QWidget& container, const QString& name, const QString& caption, const Place& place);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A picture that acts as a button.
class PictureButton final : public Button {
public:
    /// @param purpose the name for screen readers, and the tooltip.
    PictureButton(QWidget& container, const QString& name, const QString& purpose, const QIcon& picture,
                  const Place& place);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A picture centred in its area, drawn at the resolution of the screen.
class Picture final : public QWidget {
public:
    /// @param purpose the name for screen readers.
    /// @param size of the picture itself, in pixels.
    Picture(QWidget& container, const QString& name, const QString& purpose, const Place& place, QSize size);

    /// @param picture a null icon leaves the area empty.
    void Load(const QIcon& picture);
    const QIcon& Shown() const { return icon; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon icon;
    QSize size;
};

/// Makes F10 open the first menu of the bar.
void OpenWithF10(QMenuBar& bar);

/// Returns a picture from the program's resources.
QIcon Artwork(const QString& name);

} // namespace railwright
