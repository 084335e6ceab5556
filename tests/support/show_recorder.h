// Records what a show paints, for tests that compare it paint by paint.
#pragma once

#include "engine/show_observer.h"
#include "support/program.h"
#include "toolkit/observer.h"

#include <functional>
#include <string>
#include <vector>

/// One `PaintPicture`, in twips; -1 stands for a source argument that was left out.
struct RecordedPaint {
    std::string on;
    bool blank = false;        // the eraser's picture
    std::vector<float> target; // x, y, width, height
    std::vector<float> source;
};

class ShowRecorder : public toolkit::Observer, public ShowObserver {
public:
    /// Watches the program's form from now on; both must outlive the other's use.
    explicit ShowRecorder(Program& program) : program_(program) {
        program.application().setObserver(this);
        program.form().observer = this;
    }
    ~ShowRecorder() override {
        program_.application().setObserver(nullptr);
        program_.form().observer = nullptr;
    }
    ShowRecorder(const ShowRecorder&) = delete;
    ShowRecorder& operator=(const ShowRecorder&) = delete;

    void moved(const toolkit::Element& /*element*/) override {}
    void visibleAssigned(const toolkit::Element& /*element*/, bool /*changed*/) override {}
    void painted(const toolkit::Element& element, const toolkit::PaintCall& call,
                 const sys::Picture* picture) override {
        paints.push_back({element.name(),
                          picture == program_.form().pctBlank.picture().get(),
                          {call.x1, call.y1, call.width1.value_or(-1), call.height1.value_or(-1)},
                          {call.x2.value_or(-1), call.y2.value_or(-1), call.width2.value_or(-1),
                           call.height2.value_or(-1)}});
        if (afterPaint) {
            afterPaint();
        }
    }
    void mediaPlayed(const std::string& /*fileName*/) override {}
    void stripDrawn() override { ++draws; }
    void paused(std::int16_t divisor) override {
        pauses.push_back(divisor);
        if (atPause) {
            atPause();
        }
    }

    std::vector<RecordedPaint> paints;
    std::vector<int> pauses; // the divisors
    int draws = 0;           // of the transitions alone
    std::function<void()> afterPaint;
    std::function<void()> atPause; // when it begins

private:
    Program& program_;
};
