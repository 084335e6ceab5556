// What forms and picture boxes share: a retained surface, painted by `PaintPicture`.
#pragma once

#include "system/window.h"
#include "toolkit/observer.h"

#include <optional>

namespace toolkit {

class Canvas {
public:
    virtual ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// The picture last assigned; painting doesn't change it.
    const sys::PicturePtr& picture() const { return picture_; }
    /// Replaces all that was painted by the picture in its natural size at the top left corner, or by
    /// the back colour if it is empty.
    void setPicture(sys::PicturePtr picture);

    /// Replaces all that was painted, too; the picture last assigned stays in front of the colour.
    void setBackColor(sys::Color color);

    /// Copies the rectangle x2, y2, width2, height2 of the picture to x1, y1, width1, height1 of the
    /// surface, stretching it; all in twips. A target size left out is the natural one, a source size
    /// left out runs to the picture's far edge. Fails with 481 for the empty picture.
    void PaintPicture(const sys::PicturePtr& picture, const PaintCall& call);

    /// Brings what was painted to the screen now; otherwise the next yield does.
    void refresh();

protected:
    /// `self` is the element that this surface belongs to.
    Canvas(Element& self, sys::Color backColor) : self_(self), backColor_(backColor) {}

    virtual sys::Canvas& surface() = 0;
    virtual bool hasSurface() const = 0;

    sys::Color backColor() const { return backColor_; }
    /// The picture and the colour of the design, at the form's load.
    void assumePicture(sys::PicturePtr picture, sys::Color backColor);
    /// To be called by the maker of a new native window. The picture comes in its size, or fills `target`.
    void paintNewSurface(sys::Canvas& surface, const std::optional<sys::Area>& target = {});

private:
    Element& self_;
    sys::Color backColor_;
    sys::PicturePtr picture_;
};

} // namespace toolkit
