// decode_time ROUNDS PICTURE
//
// The complete decoding of one picture file by the program and by each decoder that the system brings, in
// turn.
#include "bare_decoding.h"
#include "measure.h"

#include "system/win32/system_win32.h"
#include "toolkit/application.h"
#include "toolkit/pictures.h"

#include <functional>
#include <string>
#include <vector>

#include <windows.h>

#include <gdiplus.h>
#include <olectl.h>

namespace {

struct Decoder {
    std::string name;
    std::function<void()> decode;
    std::vector<double> times{};
};

void decodeByOle(std::wstring path) {
    measure::Com<IPicture> picture;
    measure::require(OleLoadPicturePath(path.data(), nullptr, 0, 0, IID_IPicture, picture.outUnknown()) ==
                         S_OK,
                     "the OLE picture loader's picture");
}

class GdiPlus {
public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        measure::require(Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok, "GDI+");
    }
    ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

    void decode(const std::wstring& path) const {
        Gdiplus::Bitmap bitmap(path.c_str());
        // It may put the work off until somebody asks for the pixels.
        const Gdiplus::Rect whole(0, 0, static_cast<int>(bitmap.GetWidth()),
                                  static_cast<int>(bitmap.GetHeight()));
        Gdiplus::BitmapData data;
        measure::require(bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat24bppRGB, &data) ==
                             Gdiplus::Ok,
                         "GDI+'s pixels");
        bitmap.UnlockBits(&data);
    }

private:
    ULONG_PTR token_ = 0;
};

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "decode_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        const std::string path = arguments[2];
        const std::wstring widePath(path.begin(), path.end());
        const measure::ImagingCodecs codecs;
        const GdiPlus gdiPlus;
        std::vector<Decoder> decoders{
            {"product", [&] { toolkit::LoadPicture(path); }},
            {"wic", [&] { codecs.decode(widePath); }},
            {"ole", [&] { decodeByOle(widePath); }},
            {"gdiplus", [&] { gdiPlus.decode(widePath); }},
        };
        for (int round = 0; round <= rounds; ++round) {
            for (Decoder& decoder : decoders) {
                const double start = measure::now();
                decoder.decode();
                // The first round brings the codecs and the file into memory.
                if (round > 0) {
                    decoder.times.push_back(measure::now() - start);
                }
            }
        }
        for (const Decoder& decoder : decoders) {
            measure::report("decode." + decoder.name, decoder.times);
        }
    });
}
