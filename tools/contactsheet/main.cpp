// Lays pictures out on one sheet, each over a checkerboard and with a label under it.

#include <algorithm>
#include <string>
#include <vector>

#include "support/Backdrop.h"
#include "support/BitmapFont.h"
#include "support/CommandLine.h"
#include "support/FrameConverter.h"
#include "support/Image.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"
#include "support/VideoReader.h"

namespace {

constexpr int kGap = 12;
constexpr int kTextScale = 2;
constexpr Rgb kText = {32, 32, 32};
constexpr uint8_t kPaper = 255;

struct Cell {
    std::string label;
    Image picture;
};

/// "LABEL=FILE", the file scaled to \p width.
Cell LoadCell(const std::string& text, int width) {
    const size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw ToolError(text + ": give pictures as LABEL=FILE.png");
    }
    VideoReader reader(text.substr(equals + 1));
    const AVFrame& frame = reader.First();
    const int height = std::max(1, width * frame.height / frame.width);
    FrameConverter converter({width, height}, AV_PIX_FMT_RGBA);
    Cell cell{text.substr(0, equals), Image({width, height})};
    std::copy_n(converter.Convert(frame), converter.ByteSize(), cell.picture.pixels.begin());
    return cell;
}

void DrawPicture(Image& sheet, int left, int top, const Image& picture) {
    Image flat = picture;
    Backdrop().Flatten(flat);
    const auto rowBytes = static_cast<size_t>(flat.size.width) * Image::kChannels;
    for (int y = 0; y < flat.size.height; ++y) {
        std::copy_n(flat.At(0, y), rowBytes, sheet.At(left, top + y));
    }
}

void DrawCell(Image& sheet, int left, int top, const Cell& cell) {
    DrawPicture(sheet, left, top, cell.picture);
    const int slack = cell.picture.size.width - TextWidth(cell.label, kTextScale);
    DrawText(sheet, left + std::max(0, slack / 2), top + cell.picture.size.height + kGap / 2,
             cell.label, kTextScale, kText);
}

/// Cells in rows of \p columns, each row as high as its highest picture.
Image LayOut(const std::vector<Cell>& cells, size_t columns, int width) {
    std::vector<int> tops = {kGap};
    for (size_t first = 0; first < cells.size(); first += columns) {
        int height = 0;
        for (size_t i = first; i < std::min(first + columns, cells.size()); ++i) {
            height = std::max(height, cells[i].picture.size.height);
        }
        tops.push_back(tops.back() + height + TextHeight(kTextScale) + 2 * kGap);
    }
    const int used = static_cast<int>(std::min(columns, cells.size()));
    Image sheet({kGap + used * (width + kGap), tops.back()});
    std::fill(sheet.pixels.begin(), sheet.pixels.end(), kPaper);
    for (size_t i = 0; i < cells.size(); ++i) {
        const int column = static_cast<int>(i % columns);
        DrawCell(sheet, kGap + column * (width + kGap), tops[i / columns], cells[i]);
    }
    return sheet;
}

int Run(int argc, char** argv) {
    std::string out;
    size_t columns = 3;
    int width = 320;
    std::vector<std::string> pictures;
    CommandLine line("Lays pictures out on one sheet, with a label under each.", "contactsheet");
    line.Option("--out", out, "FILE.png", "The sheet to write");
    line.Option("--columns", columns, WholeIn(1, 100), "N", "Pictures in a row (default: 3)");
    line.Option("--width", width, WholeIn(1, 10000), "PX", "Width of each picture (default: 320)");
    line.Repeated(
        "PICTURES", [&pictures](const std::string& text) { pictures.push_back(text); },
        "LABEL=FILE.png", "The pictures and their labels");
    line.Require("--out");
    line.Require("PICTURES");
    if (!line.Parse(argc, argv)) {
        return kExitDone;
    }
    std::vector<Cell> cells;
    std::transform(pictures.begin(), pictures.end(), std::back_inserter(cells),
                   [width](const std::string& text) { return LoadCell(text, width); });
    WritePng(out, LayOut(cells, columns, width));
    return kExitDone;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("contactsheet", [argc, argv] { return Run(argc, argv); });
}
