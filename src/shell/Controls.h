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

/// Where a control stands in its container, in twips: 1440 to an inch, 15 to a pixel of a 96 dpi screen.
struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// @return a place, or a length, in pixels as the toolkit counts them.
QRect InPixels(const Place& place);
constexpr int InPixels(int twips) {
    return twips / 15;
}

struct FontStyle {
    bool Bold = false;
    bool Italic = false;
};

/// The typeface of all controls, Arial or one that takes the same room.
QFont ControlFont(double points = 8.25, FontStyle style = {});
/// The typeface of the report, Courier New or one that takes the same room.
QFont ReportFont();

/// Marks the control if it has the keyboard focus, once the user has pressed a key.
void DrawFocus(QWidget& control);

/// @return the name of a control in an array, such as "btnRemove(0)".
QString Indexed(const char* name, int index);

/// Names and places a control.
template <class Control>
Control* Placed(Control* control, const QString& name, const Place& place) {
    control->setObjectName(name);
    control->setGeometry(InPixels(place));
    return control;
}

QLabel* AddLabel(QWidget& container, const QString& name, const QString& caption, const Place& place,
                 const QFont& font = ControlFont());
/// A label whose text runs over several lines, from the top left.
QLabel* AddHelpText(QWidget& container, const QString& name, const QString& text, const Place& place);
/// @param caption a "&&" shows as "&".
QPushButton* AddButton(QWidget& container, const QString& name, const QString& caption, const Place& place);
QCheckBox* AddCheckBox(QWidget& container, const QString& name, const QString& caption, const Place& place,
                       bool ticked);
QRadioButton* AddOption(QWidget& container, const QString& name, const QString& caption, const Place& place,
                        bool selected);

/// A horizontal scroll bar that the keyboard reaches.
class ScrollBar : public QScrollBar {
public:
    struct Values {
        int Min, Max, LargeChange, SmallChange, Start;
    };
    /// @param purpose what a screen reader calls it.
    ScrollBar(QWidget& container, const QString& name, const QString& purpose, const Place& place,
              const Values& values);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// A button that Enter presses as well as Space.
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
    /// @param purpose what a screen reader calls it, and what is shown while the mouse rests on it.
    PictureButton(QWidget& container, const QString& name, const QString& purpose, const QIcon& picture,
                  const Place& place);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A picture in the middle of its place, as sharp as the screen can show it.
class Picture final : public QWidget {
public:
    /// @param purpose what a screen reader calls it.
    /// @param size of the picture itself, in pixels.
    Picture(QWidget& container, const QString& name, const QString& purpose, const Place& place, QSize size);

    /// @param picture a null icon leaves the place empty.
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

/// @return one of the pictures that come with the program.
QIcon Artwork(const QString& name);

} // namespace railwright
