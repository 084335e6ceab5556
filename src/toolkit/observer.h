// What a tool may watch of a running program. The product sets no observer.
#pragma once

#include "system/window.h"

#include <optional>
#include <string>

namespace toolkit {

class Element;

/// The arguments of one `PaintPicture` as they were passed, in twips; nothing where one was left out.
struct PaintCall {
    float x1 = 0;
    float y1 = 0;
    std::optional<float> width1{};
    std::optional<float> height1{};
    std::optional<float> x2{};
    std::optional<float> y2{};
    std::optional<float> width2{};
    std::optional<float> height2{};
};

class Observer {
public:
    virtual ~Observer() = default;
    virtual void moved(const Element& element) = 0;
    /// `Visible` was assigned; `changed` tells whether the value was another one before.
    virtual void visibleAssigned(const Element& element, bool changed) = 0;
    virtual void painted(const Element& element, const PaintCall& call, const sys::Picture* picture) = 0;
    virtual void mediaPlayed(const std::string& fileName) = 0;
};

} // namespace toolkit
