// The curtains: the picture is uncovered strip by strip, in rows or (vertical) in columns.
#include "engine/strips.h"
#include "show/main_form.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/numbers.h"

using toolkit::wrap16;

/// The trace calls it by another name: meant so.
void MainForm::NormalCurtainPaint(std::int16_t Vertical, std::int16_t Reverse) {
    WriteLog("S: MainForm NormalCurtainDisplay");
    Picture1.setVisible(true);
    for (std::int16_t count = 1; count <= shared.Blocks && ShowEnding == 0; ++count) {
        displayStrip(Reverse != 0 ? wrap16(shared.Blocks + 1 - count) : count, Vertical);
    }
    WriteLog("E: MainForm NormalCurtainDisplay");
}

void MainForm::DeluxeCurtainPaint(std::int16_t Vertical) {
    WriteLog("S: MainForm DeluxeCurtainPaint");
    Picture1.setVisible(true);
    std::int16_t First = 1;
    std::int16_t Last = shared.Blocks;
    // Of an odd number of strips the middle one stays black: meant so.
    while (First < Last && ShowEnding == 0) {
        displayStrip(First, Vertical);
        displayStrip(Last, Vertical);
        ++First;
        --Last;
    }
    WriteLog("E: MainForm DeluxeCurtainPaint");
}

/// Doesn't make `Picture1` visible: after a slide the strips are painted out of sight. Meant so.
void MainForm::RandomCurtainPaint(std::int16_t Vertical) {
    WriteLog("S: MainForm RandomCurtainPaint");
    UsedCells used{};
    std::int16_t Remaining = shared.Blocks;
    while (Remaining > 0 && ShowEnding == 0) {
        const std::int16_t strip = randomStrip(observer);
        const auto index = static_cast<std::size_t>(strip);
        bool& taken = Vertical != 0 ? used[1][index] : used[index][1];
        if (!taken) {
            displayStrip(strip, Vertical);
            taken = true;
            --Remaining;
        }
    }
    WriteLog("E: MainForm RandomCurtainPaint");
}

void MainForm::displayStrip(std::int16_t strip, std::int16_t Vertical) {
    if (Vertical != 0) {
        DisplayCurtain(strip, 0, Vertical);
    } else {
        DisplayCurtain(0, strip, Vertical);
    }
}

void MainForm::DisplayCurtain(std::int16_t Column, std::int16_t Row, std::int16_t Vertical) {
    if (ShowEnding != 0) {
        return;
    }
    WriteLog("S: MainForm DisplayCurtain");
    toolkit::PaintCall call{.x1 = 0,
                            .y1 = static_cast<float>(wrap16((Row - 1) * PictureBlockHeight)),
                            // A pixel larger than the strip, so that the seams close.
                            .width1 = static_cast<float>(PictureWidth + PixelWidth),
                            .height1 = static_cast<float>(PictureBlockHeight + PixelHeight),
                            .x2 = 0.0F,
                            .y2 = static_cast<float>(wrap16((Row - 1) * ImageBlockHeight)),
                            .width2 = ImageWidth,
                            .height2 = ImageBlockHeight};
    if (Vertical != 0) {
        call = {.x1 = static_cast<float>(wrap16((Column - 1) * PictureBlockWidth)),
                .y1 = 0,
                .width1 = static_cast<float>(PictureBlockWidth + PixelWidth),
                .height1 = static_cast<float>(PictureHeight + PixelHeight),
                .x2 = static_cast<float>(wrap16((Column - 1) * ImageBlockWidth)),
                .y2 = 0.0F,
                .width2 = ImageBlockWidth,
                .height2 = ImageHeight};
    }
    Picture1.PaintPicture(Image1.picture(), call);
    Picture1.refresh();
    Pause(1);
    WriteLog("E: MainForm DisplayCurtain");
}
