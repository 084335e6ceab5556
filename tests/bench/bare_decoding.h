// Decoding by the system's imaging codecs (WIC) and nothing else, into a bitmap that GDI can paint.
#pragma once

#include "measure.h"

#include <memory>
#include <string>

#include <windows.h>

#include <wincodec.h>

namespace measure {

template <class Interface> class Com {
public:
    Com() = default;
    ~Com() {
        if (pointer_ != nullptr) {
            pointer_->Release();
        }
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

    Interface** out() { return &pointer_; }
    void** outUnknown() { return reinterpret_cast<void**>(&pointer_); }
    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }

private:
    Interface* pointer_ = nullptr;
};

/// A bitmap in memory, with a context to paint from or to.
class Bitmap {
public:
    Bitmap(int width, int height, WORD bitsPerPixel) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // the first row is the top one
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = bitsPerPixel;
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        require(bitmap_ != nullptr, "memory for a bitmap");
        former_ = SelectObject(context_, bitmap_);
        stride_ = static_cast<UINT>((width * bitsPerPixel + 31) / 32 * 4);
    }
    ~Bitmap() {
        SelectObject(context_, former_);
        DeleteDC(context_);
        DeleteObject(bitmap_);
    }
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    HDC context() const { return context_; }
    int width() const { return width_; }
    int height() const { return height_; }
    UINT stride() const { return stride_; }
    BYTE* bits() const { return static_cast<BYTE*>(bits_); }

private:
    int width_;
    int height_;
    UINT stride_ = 0;
    void* bits_ = nullptr;
    HDC context_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ former_ = nullptr;
};

class ImagingCodecs {
public:
    ImagingCodecs() {
        CoInitialize(nullptr);
        require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IWICImagingFactory, factory_.outUnknown()) == S_OK,
                "the system's imaging codecs");
    }

    /// Decodes a JPEG file in the codec's own format, 24 bits a pixel.
    std::unique_ptr<Bitmap> decode(const std::wstring& path) const {
        Com<IWICBitmapDecoder> decoder;
        require(factory_->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                    WICDecodeMetadataCacheOnDemand, decoder.out()) == S_OK,
                "a decoder for the picture");
        Com<IWICBitmapFrameDecode> frame;
        require(decoder->GetFrame(0, frame.out()) == S_OK, "the picture's frame");
        UINT width = 0;
        UINT height = 0;
        frame->GetSize(&width, &height);
        auto bitmap = std::make_unique<Bitmap>(static_cast<int>(width), static_cast<int>(height), WORD{24});
        require(frame->CopyPixels(nullptr, bitmap->stride(), bitmap->stride() * height, bitmap->bits()) ==
                    S_OK,
                "the picture's pixels");
        return bitmap;
    }

private:
    Com<IWICImagingFactory> factory_;
};

} // namespace measure
