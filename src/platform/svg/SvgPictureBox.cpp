#include "platform/svg/SvgPictureBox.h"

#include "base/NumberFormat.h"

#include <array>
#include <string_view>

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

void Append(std::string& element, const char* name, std::string_view value) {
    ((element += ' ') += name) += "=\"";
    (element += value) += '"';
}

void Append(std::string& element, const char* name, float value) {
    Append(element, name, std::string_view(ShortestFloat(value)));
}

} // namespace

void SvgPictureBox::Cls() {
    elements.clear();
}

void SvgPictureBox::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    elements += "<line";
    Append(elements, "x1", x1);
    Append(elements, "y1", y1);
    Append(elements, "x2", x2);
    Append(elements, "y2", y2);
    Append(elements, "stroke", Hex(colour));
    Append(elements, "stroke-width", std::to_string(penWidth));
    elements += "/>\n";
}

void SvgPictureBox::PSet(float x, float y, Rgb colour) {
    elements += "<circle";
    Append(elements, "cx", x);
    Append(elements, "cy", y);
    Append(elements, "r", static_cast<float>(penWidth) / 2);
    Append(elements, "fill", Hex(colour));
    elements += "/>\n";
}

void SvgPictureBox::DrawWidth(int pixels) {
    penWidth = pixels;
}

std::string SvgPictureBox::Document() const {
    const std::string size = std::to_string(Size);
    std::string document = "<svg xmlns=\"http://www.w3.org/2000/svg\"";
    const auto appendSize = [&] {
        Append(document, "width", size);
        Append(document, "height", size);
    };
    appendSize();
    Append(document, "viewBox", "0 0 " + size + ' ' + size);
    document += ">\n<rect";
    appendSize();
    Append(document, "fill", "#000000");
    document += "/>\n";
    return document + elements + "</svg>\n";
}

} // namespace railwright
