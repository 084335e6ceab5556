#include "engine/transitions.h"

#include "show/main_form.h"
#include "startup/shared_state.h"

#include <array>

namespace {

constexpr std::array transitions = {
    Transition{"Normal", [](MainForm& form) { form.NormalDisplay(); }},
    Transition{"Random Blocks", [](MainForm& form) { form.RandomBlockPaint(); }},
    Transition{"Top To Bottom", [](MainForm& form) { form.NormalCurtainPaint(False, False); }},
    Transition{"Bottom To Top", [](MainForm& form) { form.NormalCurtainPaint(False, True); }},
    Transition{"Top/Bottom To Center", [](MainForm& form) { form.DeluxeCurtainPaint(False); }},
    Transition{"Random Horizontal", [](MainForm& form) { form.RandomCurtainPaint(False); }},
    Transition{"Left To Right", [](MainForm& form) { form.NormalCurtainPaint(True, False); }},
    Transition{"Right To Left", [](MainForm& form) { form.NormalCurtainPaint(True, True); }},
    Transition{"Left/Right To Center", [](MainForm& form) { form.DeluxeCurtainPaint(True); }},
    Transition{"Random Vertical", [](MainForm& form) { form.RandomCurtainPaint(True); }},
    Transition{"Slide Bottom To Center", [](MainForm& form) { form.SlideBottom2Center(); }},
    Transition{"Slide Top To Center", [](MainForm& form) { form.SlideTop2Center(); }},
    Transition{"Slide Right To Center", [](MainForm& form) { form.SlideRight2Center(); }},
    Transition{"Slide Left To Center", [](MainForm& form) { form.SlideLeft2Center(); }},
};
static_assert(transitions.size() < mostDissolveNames); // "Random" is a name, too

} // namespace

std::span<const Transition> allTransitions() { return transitions; }
