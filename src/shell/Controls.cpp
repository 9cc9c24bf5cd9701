#include "shell/Controls.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QRadioButton>
#include <QShortcut>
#include <QStyle>
#include <QStyleOption>

namespace railwright {
namespace {

constexpr double PixelsPerPoint = 96.0 / 72.0;

QFont FontOf(const QStringList& families, double points) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(qRound(points * PixelsPerPoint));
    return font;
}

} // namespace

QRect InPixels(const Place& place) {
    return {InPixels(place.Left), InPixels(place.Top), InPixels(place.Width), InPixels(place.Height)};
}

QFont ControlFont(double points, FontStyle style) {
    QFont font = FontOf({"Arial", "Liberation Sans", "Arimo"}, points);
    font.setBold(style.Bold);
    font.setItalic(style.Italic);
    return font;
}

QFont ReportFont() {
    QFont font = FontOf({"Courier New", "Liberation Mono", "Cousine"}, 8.25);
    font.setStyleHint(QFont::Monospace);
    return font;
}

void DrawFocus(QWidget& control) {
    if (!control.hasFocus() || !control.window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    QStyleOptionFocusRect option;
    option.initFrom(&control);
    option.backgroundColor = control.palette().color(QPalette::Window);
    QPainter painter(&control);
    control.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &control);
}

QString Indexed(const char* name, int index) {
    return QString("%1(%2)").arg(name).arg(index);
}

QLabel* AddLabel(QWidget& container, const QString& name, const QString& caption, const Place& place,
                 const QFont& font) {
    auto* const label = Placed(new QLabel(caption, &container), name, place);
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    return label;
}

QLabel* AddHelpText(QWidget& container, const QString& name, const QString& text, const Place& place) {
    QLabel* const label = AddLabel(container, name, text, place);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

QPushButton* AddButton(QWidget& container, const QString& name, const QString& caption, const Place& place) {
    return Placed(new Button(caption, &container), name, place);
}

QCheckBox* AddCheckBox(QWidget& container, const QString& name, const QString& caption, const Place& place,
                       bool ticked) {
    auto* const box = Placed(new QCheckBox(caption, &container), name, place);
    box->setChecked(ticked);
    return box;
}

QRadioButton* AddOption(QWidget& container, const QString& name, const QString& caption, const Place& place,
                        bool selected) {
    auto* const option = Placed(new QRadioButton(caption, &container), name, place);
    option->setChecked(selected);
    return option;
}

ScrollBar::ScrollBar(QWidget& container, const QString& name, const QString& purpose, const Place& place,
                     const Values& values)
    : QScrollBar(Qt::Horizontal, &container) {
    Placed(this, name, place);
    setAccessibleName(purpose);
    setFocusPolicy(Qt::StrongFocus);
    setRange(values.Min, values.Max);
    setPageStep(values.LargeChange);
    setSingleStep(values.SmallChange);
    setValue(values.Start);
}

void ScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    DrawFocus(*this);
}

void ScrollBar::keyPressEvent(QKeyEvent* event) {
    // The toolkit inverts all keys so that Down and Page Down scroll forward. Left and Right must not be
    // inverted.
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    setInvertedControls(!isSideways);
    QScrollBar::keyPressEvent(event);
    setInvertedControls(true);
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

LinkLabel::LinkLabel(QWidget& container, const QString& name, const QString& caption, const Place& place)
    : Button(caption, &container) {
    Placed(this, name, place);
    setFont(ControlFont());
    setCursor(Qt::PointingHandCursor);
}

void LinkLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QFont shown = font();
    shown.setUnderline(isEnabled() && underMouse());
    painter.setFont(shown);
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(),
                          QPalette::WindowText);
    painter.end();
    DrawFocus(*this);
}

PictureButton::PictureButton(QWidget& container, const QString& name, const QString& purpose,
                             const QIcon& picture, const Place& place)
    : Button(&container) {
    Placed(this, name, place);
    setAccessibleName(purpose);
    setToolTip(purpose);
    setIcon(picture);
    setCursor(Qt::PointingHandCursor);
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    icon().paint(&painter, rect());
    painter.end();
    DrawFocus(*this);
}

Picture::Picture(QWidget& container, const QString& name, const QString& purpose, const Place& place,
                 QSize pictureSize)
    : QWidget(&container), size(pictureSize) {
    Placed(this, name, place);
    setAccessibleName(purpose);
}

void Picture::Load(const QIcon& picture) {
    icon = picture;
    update();
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QRect inside(QPoint(), size);
    inside.moveCenter(rect().center());
    icon.paint(&painter, inside);
}

void OpenWithF10(QMenuBar& bar) {
    const auto* const key = new QShortcut(Qt::Key_F10, &bar);
    QObject::connect(key, &QShortcut::activated, &bar,
                     [&bar] { bar.setActiveAction(bar.actions().constFirst()); });
}

QIcon Artwork(const QString& name) {
    return QIcon(":/artwork/" + name + ".png");
}

} // namespace railwright
