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

/// A square picture on black ground, with a coordinate system in pixels: X to the right, Y downwards. It
/// keeps what was drawn until the next Cls, and its pen width over that. The pen starts one pixel wide.
class PictureBox {
public:
    /// Width and height of the picture, in pixels.
    static constexpr int Size = 224;

    virtual ~PictureBox() = default;
    /// Clears the picture to its black ground.
    virtual void Cls() = 0;
    virtual void Line(float x1, float y1, float x2, float y2, Rgb colour) = 0;
    /// Sets one point, as large as the pen is wide.
    virtual void PSet(float x, float y, Rgb colour) = 0;
    virtual void DrawWidth(int pixels) = 0;
};

/// A picture that nobody looks at.
class NoPicture final : public PictureBox {
public:
    void Cls() override {}
    void Line(float, float, float, float, Rgb) override {}
    void PSet(float, float, Rgb) override {}
    void DrawWidth(int) override {}
};

} // namespace railwright
