// The slides: the picture moves in from an edge, painted on the form itself, with `Picture1` hidden. They
// draw in natural size and differ in more than direction; all differences are meant so, and that none of
// their loops looks at `ShowEnding`.
#include "show/main_form.h"
#include "startup/trace.h"
#include "toolkit/numbers.h"

using toolkit::round32;

namespace {

constexpr std::int32_t stride = 100; // twips a pass
constexpr std::int32_t overlap = 90; // twips by which the black lies over the picture's trail
constexpr std::int32_t edge = 1;     // where a slide begins; sources begin here as well, and never at 0

float twips(std::int32_t value) { return static_cast<float>(value); }

} // namespace

/// Whether a slide can run; else the picture has been shown plainly.
bool MainForm::beginSlide() {
    if (Image1.width() > width() || Image1.height() > height()) {
        NormalDisplay();
        return false;
    }
    return true;
}

void MainForm::hideForSlide() {
    Picture1.setVisible(false);
    Picture1.setPicture(Image1.picture());
}

/// Paints a part of the picture on the form; all in twips.
void MainForm::paintSlide(std::int32_t x, std::int32_t y, std::int32_t shownWidth, std::int32_t shownHeight,
                          std::int32_t sourceX, std::int32_t sourceY) {
    PaintPicture(Picture1.picture(), {.x1 = twips(x),
                                      .y1 = twips(y),
                                      .width1 = twips(shownWidth),
                                      .height1 = twips(shownHeight),
                                      .x2 = twips(sourceX),
                                      .y2 = twips(sourceY),
                                      .width2 = twips(shownWidth),
                                      .height2 = twips(shownHeight)});
}

/// Paints black over a part of the form; all in twips.
void MainForm::eraseSlide(std::int32_t x, std::int32_t y, float blankWidth, float blankHeight) {
    PaintPicture(pctBlank.picture(),
                 {.x1 = twips(x), .y1 = twips(y), .width1 = blankWidth, .height1 = blankHeight});
}

void MainForm::SlideBottom2Center() {
    if (!beginSlide()) {
        return;
    }
    WriteLog("S: MainForm SlideBottom2Center");
    hideForSlide();
    const std::int32_t SlideX = round32((width() - Picture1.width()) / 2);
    std::int32_t SlideY = round32(height() - stride);
    std::int32_t ShownHeight = stride;
    while (twips(SlideY) >= (height() - Picture1.height()) / 2) {
        const std::int32_t across = round32(Picture1.width());
        paintSlide(SlideX, SlideY, across, ShownHeight, edge, edge);
        // In the last pass too, so that the lowest twips of the picture stay covered.
        const std::int32_t blankTop = SlideY + ShownHeight - overlap;
        eraseSlide(SlideX, blankTop, twips(across), height() - twips(blankTop));
        if (Picture1.height() > twips(ShownHeight + stride)) {
            ShownHeight += stride;
        } else {
            ShownHeight = round32(Picture1.height());
        }
        SlideY -= stride;
        Pause(5);
    }
    WriteLog("E: MainForm SlideBottom2Center");
}

void MainForm::SlideTop2Center() {
    if (!beginSlide()) {
        return;
    }
    WriteLog("S: MainForm SlideTop2Center");
    hideForSlide();
    const std::int32_t SlideX = round32((width() - Picture1.width()) / 2);
    std::int32_t SlideY = edge;
    std::int32_t ShownHeight = stride;
    std::int32_t SourceY = round32(Picture1.height() - stride);
    while ((height() - Picture1.height()) / 2 > twips(SlideY)) {
        const std::int32_t across = round32(Picture1.width());
        paintSlide(SlideX, SlideY, across, ShownHeight, edge, SourceY);
        if (Picture1.height() > twips(ShownHeight + stride)) {
            // The picture grows out of the edge on the spot, its lower part first.
            ShownHeight += stride;
        } else {
            ShownHeight = round32(Picture1.height());
            SlideY += stride;
            eraseSlide(SlideX, edge, twips(across), twips(SlideY - overlap));
        }
        SourceY = round32(Picture1.height() - twips(ShownHeight));
        Pause(5);
        Label2.setCaption(toolkit::textOf(height()) + "," + toolkit::textOf(Picture1.height()) + "," +
                          toolkit::textOf(SlideY));
    }
    WriteLog("E: MainForm SlideTop2Center");
}

void MainForm::SlideLeft2Center() {
    if (!beginSlide()) {
        return;
    }
    WriteLog("S: MainForm SlideLeft2Center");
    hideForSlide();
    std::int32_t SlideX = edge;
    const std::int32_t SlideY = round32((height() - Picture1.height()) / 2);
    std::int32_t ShownWidth = stride;
    std::int32_t SourceX = round32(Picture1.width() - stride);
    while ((width() - Picture1.width()) / 2 > twips(SlideX)) {
        const std::int32_t across = round32(Picture1.height());
        paintSlide(SlideX, SlideY, ShownWidth, across, SourceX, edge);
        if (Picture1.width() > twips(ShownWidth + stride)) {
            ShownWidth += stride;
        } else {
            ShownWidth = round32(Picture1.width());
            SlideX += stride;
            eraseSlide(edge, SlideY, twips(SlideX - overlap), twips(across));
        }
        SourceX = round32(Picture1.width() - twips(ShownWidth));
        Pause(2);
    }
    WriteLog("E: MainForm SlideLeft2Center");
}

void MainForm::SlideRight2Center() {
    if (!beginSlide()) {
        return;
    }
    WriteLog("S: MainForm SlideRight2Center");
    hideForSlide();
    std::int32_t SlideX = round32(width() - stride);
    const std::int32_t SlideY = round32((height() - Picture1.height()) / 2);
    std::int32_t ShownWidth = stride;
    while (twips(SlideX) >= (width() - Picture1.width()) / 2) {
        paintSlide(SlideX, SlideY, ShownWidth, round32(Picture1.height()), edge, edge);
        if (Image1.width() > twips(ShownWidth + stride)) {
            ShownWidth += stride;
        } else {
            ShownWidth = round32(Picture1.width());
            // Taller than need be, past the form's lower edge.
            eraseSlide(SlideX + ShownWidth, SlideY, width() - twips(SlideX), height());
        }
        SlideX -= stride;
        Pause(2);
    }
    WriteLog("E: MainForm SlideRight2Center");
}
