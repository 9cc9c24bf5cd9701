#pragma once

#include <cstdint>

namespace railwright {

/// A colour on a picture.
struct Rgb {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Rgb&) const = default;
};

/// A square picture on a black background, with coordinates in pixels: X to the right, Y down. Keeps its
/// content until the next Cls. The pen width starts at one pixel and is not reset by Cls.
class PictureBox {
public:
    /// Width and height of the picture, in pixels.
    static constexpr int Size = 224;

    virtual ~PictureBox() = default;
    /// Clears the picture to black.
    virtual void Cls() = 0;
    virtual void Line(float x1, float y1, float x2, float y2, Rgb colour) = 0;
    /// Draws one point with the diameter of the pen.
    virtual void PSet(float x, float y, Rgb colour) = 0;
    virtual void DrawWidth(int pixels) = 0;
};

/// A picture that ignores all drawing calls.
class NoPicture final : public PictureBox {
public:
    void Cls() override {}
    void Line(float, float, float, float, Rgb) override {}
    void PSet(float, float, Rgb) override {}
    void DrawWidth(int) override {}
};

} // namespace railwright
