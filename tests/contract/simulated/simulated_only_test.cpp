// What only the simulated machine does. Under Wine a shrinking stretch takes the pixels nearest to each point
// instead of the average of all, whatever mode is set; Windows itself averages.
#include "contract/contract_test.h"
#include "contract/picture_files.h"

namespace contract {

namespace {

class SimulatedOnly : public FormTest {};

} // namespace

TEST_F(SimulatedOnly, Shrinking_Averages) {
    const auto stripes = system.decodePicture(bmp({80, 40}, [](int x, int) {
        return x % 2 == 0 ? sys::Color{0, 0, 0} : sys::Color{200, 200, 200};
    }));
    form.right.PaintPicture(stripes, {.width1 = twips(40), .height1 = twips(20)});
    driver->settle();
    const sys::PixelRect at = TestForm::rightPlace;
    EXPECT_THAT(seen({at.left, at.top, at.left + 40, at.top + 20}), Each(sys::Color{100, 100, 100}));
}

} // namespace contract
