#include "drawing/SvgPictureBox.h"

#include <array>
#include <cstdint>

namespace railwright {
namespace {

/// Formats a colour as an attribute value.
struct Hex {
    Rgb Colour;
};

TextOutput& operator<<(TextOutput& out, Hex hex) {
    constexpr std::array digits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                   '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
    out << '#';
    for (const std::uint8_t part : {hex.Colour.Red, hex.Colour.Green, hex.Colour.Blue})
        out << digits[part >> 4U] << digits[part & 0xFU];
    return out;
}

template <class Value>
void Attribute(TextOutput& out, std::string_view name, Value value) {
    out << ' ' << name << "=\"" << value << '"';
}

} // namespace

SvgPictureBox::SvgPictureBox(TextOutput& document) : out(document) {
    out << "<svg";
    Attribute(out, "xmlns", "http://www.w3.org/2000/svg");
    Attribute(out, "width", Size);
    Attribute(out, "height", Size);
    out << " viewBox=\"0 0 " << Size << ' ' << Size << "\">\n";
}

void SvgPictureBox::Cls() {
    out << "<rect";
    Attribute(out, "width", Size);
    Attribute(out, "height", Size);
    Attribute(out, "fill", Hex{{0, 0, 0}});
    out << "/>\n";
}

void SvgPictureBox::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    out << "<line";
    Attribute(out, "x1", x1);
    Attribute(out, "y1", y1);
    Attribute(out, "x2", x2);
    Attribute(out, "y2", y2);
    Attribute(out, "stroke", Hex{colour});
    Attribute(out, "stroke-width", penWidth);
    out << "/>\n";
}

void SvgPictureBox::PSet(float x, float y, Rgb colour) {
    out << "<circle";
    Attribute(out, "cx", x);
    Attribute(out, "cy", y);
    Attribute(out, "r", static_cast<float>(penWidth) / 2);
    Attribute(out, "fill", Hex{colour});
    out << "/>\n";
}

void SvgPictureBox::DrawWidth(int pixels) {
    penWidth = pixels;
}

void SvgPictureBox::End() {
    out << "</svg>\n";
}

} // namespace railwright
