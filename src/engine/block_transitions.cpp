// The block transition: the picture is built from a grid of blocks in random order.
#include "engine/strips.h"
#include "show/main_form.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/numbers.h"

using toolkit::wrap16;

void MainForm::RandomBlockPaint() {
    WriteLog("S: MainForm RandomBlockPaint");
    Picture1.setVisible(true);
    UsedCells used{};
    std::int16_t Remaining = wrap16(shared.Blocks * shared.Blocks);
    while (Remaining > 0 && ShowEnding == 0) {
        const std::int16_t Column = randomStrip(observer);
        const std::int16_t Row = randomStrip(observer);
        bool& taken = used[static_cast<std::size_t>(Row)][static_cast<std::size_t>(Column)];
        if (!taken) {
            DisplayBlock(Column, Row);
            taken = true;
            --Remaining;
        }
    }
    WriteLog("E: MainForm RandomBlockPaint");
}

/// What the division by `Blocks` leaves at the far edges is
/// never drawn: meant so.
void MainForm::DisplayBlock(std::int16_t Column, std::int16_t Row) {
    if (ShowEnding != 0) {
        return;
    }
    WriteLog("S: MainForm DisplayBlock");
    Picture1.PaintPicture(Image1.picture(),
                          {.x1 = static_cast<float>(wrap16((Column - 1) * PictureBlockWidth)),
                           .y1 = static_cast<float>(wrap16((Row - 1) * PictureBlockHeight)),
                           // A pixel larger than the block, so that the seams close.
                           .width1 = static_cast<float>(PictureBlockWidth + PixelWidth),
                           .height1 = static_cast<float>(PictureBlockHeight + PixelHeight),
                           .x2 = static_cast<float>(wrap16((Column - 1) * ImageBlockWidth)),
                           .y2 = static_cast<float>(wrap16((Row - 1) * ImageBlockHeight)),
                           .width2 = ImageBlockWidth,
                           .height2 = ImageBlockHeight});
    Picture1.refresh();
    Pause(10);
    WriteLog("E: MainForm DisplayBlock");
}
