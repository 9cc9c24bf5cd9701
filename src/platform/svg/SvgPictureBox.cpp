#include "platform/svg/SvgPictureBox.h"

#include "base/NumberFormat.h"

#include <array>

namespace railwright {
namespace {

std::string Hex(Rgb colour) {
    constexpr std::array digits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                   '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
    std::string hex = "#";
    for (const std::uint8_t part : {colour.Red, colour.Green, colour.Blue}) {
        hex += digits[part >> 4U];
        hex += digits[part & 0xFU];
    }
    return hex;
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

std::string Attribute(const char* name, float value) {
    return Attribute(name, ShortestFloat(value));
}

} // namespace

void SvgPictureBox::Cls() {
    elements.clear();
}

void SvgPictureBox::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    elements += "<line" + Attribute("x1", x1) + Attribute("y1", y1) + Attribute("x2", x2) +
                Attribute("y2", y2) + Attribute("stroke", Hex(colour)) +
                Attribute("stroke-width", std::to_string(penWidth)) + "/>\n";
}

void SvgPictureBox::PSet(float x, float y, Rgb colour) {
    elements += "<circle" + Attribute("cx", x) + Attribute("cy", y) +
                Attribute("r", static_cast<float>(penWidth) / 2) + Attribute("fill", Hex(colour)) + "/>\n";
}

void SvgPictureBox::DrawWidth(int pixels) {
    penWidth = pixels;
}

std::string SvgPictureBox::Document() const {
    const std::string size = std::to_string(Size);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", size) +
           Attribute("height", size) + Attribute("viewBox", "0 0 " + size + ' ' + size) + ">\n<rect" +
           Attribute("width", size) + Attribute("height", size) + Attribute("fill", "#000000") + "/>\n" +
           elements + "</svg>\n";
}

} // namespace railwright
