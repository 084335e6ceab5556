#include "system/win32/picture_decoder.h"

#include "system/win32/codec_input.h"
#include "system/win32/com.h"
#include "system/win32/dib.h"
#include "system/win32/metafile.h"
#include "system/win32/picture_bytes.h"
#include "system/win32/pictures.h"

#include <wincodec.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace sys::win32 {

namespace {

void check(HRESULT result) {
    if (SUCCEEDED(result)) {
        return;
    }
    throw Failure(result == E_OUTOFMEMORY ? FailureCode::outOfMemory : FailureCode::invalidPicture);
}

/// `make` is handed the place for the interface pointer.
template <class Interface, class Make> ComPtr<Interface> obtain(Make make) {
    Interface* object = nullptr;
    check(make(&object));
    return ComPtr<Interface>(object);
}

/// The coverage that a premultiplied picture has in its fourth channel; null when all of it is opaque.
std::unique_ptr<MemoryBitmap> coverageOf(const MemoryBitmap& colors) {
    const auto pixelCount =
        static_cast<std::size_t>(colors.size().width) * static_cast<std::size_t>(colors.size().height);
    const auto alphaOf = [bits = colors.row(0)](std::size_t pixel) { return bits[pixel * 4 + 3]; };
    std::size_t pixel = 0;
    while (pixel < pixelCount && alphaOf(pixel) == 255) {
        ++pixel;
    }
    if (pixel == pixelCount) {
        return nullptr;
    }
    auto coverage = MemoryBitmap::make(colors.size(), 32);
    if (!coverage) {
        throw Failure(FailureCode::outOfMemory);
    }
    for (pixel = 0; pixel < pixelCount; ++pixel) {
        std::fill_n(coverage->row(0) + pixel * 4, 3, alphaOf(pixel));
    }
    return coverage;
}

bool beginsWith(Bytes bytes, std::initializer_list<std::uint8_t> signature) {
    return bytes.size() >= signature.size() && std::equal(signature.begin(), signature.end(), bytes.begin());
}

} // namespace

/// The system's imaging component, held for the whole run, as making it takes longer than a small picture.
class ImagingCodecs {
public:
    ImagingCodecs() {
        factory_ = obtain<IWICImagingFactory>([](IWICImagingFactory** factory) {
            return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory, reinterpret_cast<void**>(factory));
        });
    }

    /// Without colours that show through.
    std::unique_ptr<MemoryBitmap> decodeOpaque(Bytes bytes, const GUID& container) {
        const auto frame = frameOf(bytes, container, 0);
        if (IsEqualGUID(formatOf(*frame), GUID_WICPixelFormat24bppBGR) != 0) {
            return pixelsOf(*frame, GUID_WICPixelFormat24bppBGR, 24);
        }
        // NOTE: Wine knows no way from greys to 24 bits.
        return pixelsOf(*frame, GUID_WICPixelFormat32bppBGR, 32);
    }

    /// Premultiplied, with the coverage as the fourth byte of each pixel.
    std::unique_ptr<MemoryBitmap> decodeTransparent(Bytes bytes, const GUID& container, UINT index) {
        return pixelsOf(*frameOf(bytes, container, index), GUID_WICPixelFormat32bppPBGRA, 32);
    }

private:
    /// Reads from `bytes` for as long as it lives.
    ComPtr<IWICBitmapFrameDecode> frameOf(Bytes bytes, const GUID& container, UINT index) {
        demand(bytes.size() <= std::numeric_limits<DWORD>::max());
        const auto stream =
            obtain<IWICStream>([&](IWICStream** made) { return factory_->CreateStream(made); });
        // The stream is only read, whatever its signature says.
        check(
            stream->InitializeFromMemory(const_cast<BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size())));
        const auto decoder = obtain<IWICBitmapDecoder>(
            [&](IWICBitmapDecoder** made) { return factory_->CreateDecoder(container, nullptr, made); });
        check(decoder->Initialize(stream.get(), WICDecodeMetadataCacheOnDemand));
        return obtain<IWICBitmapFrameDecode>(
            [&](IWICBitmapFrameDecode** made) { return decoder->GetFrame(index, made); });
    }

    static WICPixelFormatGUID formatOf(IWICBitmapFrameDecode& frame) {
        WICPixelFormatGUID format{};
        check(frame.GetPixelFormat(&format));
        return format;
    }

    /// Straight into the bitmap's own memory, so that a large picture is never there twice.
    std::unique_ptr<MemoryBitmap> pixelsOf(IWICBitmapFrameDecode& frame, const GUID& format,
                                           WORD bitsPerPixel) {
        UINT width = 0;
        UINT height = 0;
        check(frame.GetSize(&width, &height));
        checkSize(width, height);
        auto bitmap = MemoryBitmap::make({static_cast<int>(width), static_cast<int>(height)}, bitsPerPixel);
        if (!bitmap) {
            throw Failure(FailureCode::outOfMemory);
        }
        copyPixels(frame, format, *bitmap);
        return bitmap;
    }

    void copyPixels(IWICBitmapFrameDecode& frame, const GUID& format, MemoryBitmap& bitmap) {
        const auto row = static_cast<UINT>(bitmap.bytesPerRow());
        const auto size = static_cast<UINT>(bitmap.byteCount());
        if (IsEqualGUID(formatOf(frame), format) != 0) {
            check(frame.CopyPixels(nullptr, row, size, bitmap.row(0)));
            return;
        }
        const auto converter = obtain<IWICFormatConverter>(
            [&](IWICFormatConverter** made) { return factory_->CreateFormatConverter(made); });
        check(converter->Initialize(&frame, format, WICBitmapDitherTypeNone, nullptr, 0,
                                    WICBitmapPaletteTypeCustom));
        check(converter->CopyPixels(nullptr, row, size, bitmap.row(0)));
    }

    Apartment apartment_; // left after the factory is gone
    ComPtr<IWICImagingFactory> factory_;
};

PictureDecoder::PictureDecoder(TwipsPerPixel scale) : scale_(scale) {}
PictureDecoder::~PictureDecoder() = default;

ImagingCodecs& PictureDecoder::codecs() {
    if (!codecs_) {
        codecs_ = std::make_unique<ImagingCodecs>();
    }
    return *codecs_;
}

PicturePtr PictureDecoder::decode(Bytes bytes) {
    if (isMetafile(bytes)) {
        return decodeMetafile(bytes, scale_);
    }

    Layers pixels;
    auto& [colors, coverage] = pixels;
    if (beginsWith(bytes, {'B', 'M'})) {
        colors = decodeBmp(bytes);
    } else if (beginsWith(bytes, {0xFF, 0xD8, 0xFF})) {
        colors = codecs().decodeOpaque(bytes, GUID_ContainerFormatJpeg);
    } else if (beginsWith(bytes, {'G', 'I', 'F', '8'})) {
        colors = codecs().decodeTransparent(firstPictureOfGif(bytes), GUID_ContainerFormatGif, 0);
        coverage = coverageOf(*colors);
    } else if (beginsWith(bytes, {0, 0, 1, 0})) {
        colors =
            codecs().decodeTransparent(bytes, GUID_ContainerFormatIco, static_cast<UINT>(bestOfIcon(bytes)));
        coverage = coverageOf(*colors);
    } else {
        throw Failure(FailureCode::invalidPicture);
    }
    return std::make_shared<BitmapPicture>(std::move(pixels), scale_);
}

} // namespace sys::win32
