// Draws a thumbnail of a document's plan for file managers.
#include "base/Text.h"
#include "base/Version.h"
#include "documents/DocumentKinds.h"
#include "platform/FilePath.h"
#include "platform/WholeFile.h"
#include "thumbnailer/Thumbnail.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <new>

#include <QBuffer>

namespace railwright {
namespace {

constexpr int Failed = 1;
constexpr int Usage = 2;

/// Bytes. A file manager waits for the picture, and a longer file would take seconds or too much memory.
constexpr std::int64_t LongestDrawn = 16 << 20;

/// @param size width and height in pixels.
/// @return the error, if any.
FileResult DrawPlan(const FilePath& file, int size, QImage& drawn) {
    const DocumentKind* const kind = KindOf(DocumentKinds, file.Native());
    if (kind == nullptr)
        return FileResult::Failure(OfNoKind);
    if (FileLength(file) > LongestDrawn)
        return FileResult::Failure("the file is too long to be drawn while somebody waits");
    if (FileResult loaded = kind->Load(file); !loaded)
        return loaded;
    kind->Analyze();
    drawn = DrawThumbnail(size, [&](PictureBox& plan) {
        NoPicture side;
        kind->Draw(plan, side);
    });
    return {};
}

FileResult WritePng(const FilePath& file, const QImage& image) {
    QBuffer png;
    if (!image.save(&png, "PNG"))
        return FileResult::Failure("the picture cannot be made");
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(png.data().constData());
    return WriteWholeFile(file, std::span(bytes, static_cast<std::size_t>(png.size())));
}

int Run(int count, char** words) {
    CLI::App app("Draws the plan of a NoLimits track or element as a PNG file.", "railwright-thumbnailer");
    int size = 0;
    std::string file;
    std::string picture;
    app.add_option("SIZE", size, "width and height of the picture in pixels, up to 1024")
        ->required()
        ->check(CLI::Range(1, 1024))
        ->type_name("");
    app.add_option("FILE", file, "track or element to draw")->required()->type_name("");
    app.add_option("PICTURE", picture, "PNG file to write")->required()->type_name("");
    app.set_version_flag("--version", "railwright-thumbnailer " + std::string(Version),
                         "print the version and exit");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return OnOneLine(error.what()) + "\nRun with --help for more information.\n";
    });
    try {
        app.parse(count, words);
    } catch (const CLI::ParseError& error) {
        if (app.exit(error, std::cout, std::cerr) != 0)
            return Usage;
        if (std::cout.flush())
            return 0;
        std::cerr << "railwright-thumbnailer: standard output: cannot be written\n";
        return Failed;
    }
    QImage drawn;
    FileResult result = DrawPlan(FilePath::FromUser(file), size, drawn);
    const std::string& concerned = result ? picture : file;
    if (result)
        result = WritePng(FilePath::FromUser(picture), drawn);
    if (!result) {
        std::cerr << "railwright-thumbnailer: " << OnOneLine(concerned + ": " + result.Reason) << '\n';
        return Failed;
    }
    return 0;
}

} // namespace
} // namespace railwright

int main(int count, char** words) {
    try {
        return railwright::Run(count, words);
    } catch (const std::bad_alloc&) {
        std::cerr << "railwright-thumbnailer: there is not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << "railwright-thumbnailer: " << error.what() << '\n';
    }
    return railwright::Failed;
}
