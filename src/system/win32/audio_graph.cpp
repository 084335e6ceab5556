#include "system/win32/audio_graph.h"

#include "system/win32/com.h"
#include "system/win32/events.h"

#include <control.h>
#include <evcode.h>
#include <strmif.h>
#include <uuids.h>

#include <utility>
#include <vector>

namespace sys::win32 {

namespace {

constexpr std::int64_t unitsOfMillisecond = 10'000; // of the component's time

std::vector<AudioGraph*> living;

/// A component of the given class; null when the system can't make it.
template <class Interface> ComPtr<Interface> make(const GUID& componentClass, const GUID& interfaceId) {
    void* made = nullptr;
    const HRESULT result =
        CoCreateInstance(componentClass, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &made);
    return ComPtr<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(made) : nullptr);
}

/// Another face of a component; null when it hasn't got it.
template <class Interface> ComPtr<Interface> faceOf(IUnknown& component, const GUID& interfaceId) {
    void* face = nullptr;
    const HRESULT result = component.QueryInterface(interfaceId, &face);
    return ComPtr<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(face) : nullptr);
}

/// Calls `visit` with each pin of that direction.
template <class Visit> void forEachPin(IBaseFilter& filter, PIN_DIRECTION wanted, const Visit& visit) {
    IEnumPins* found = nullptr;
    if (FAILED(filter.EnumPins(&found))) {
        return;
    }
    const ComPtr<IEnumPins> pins(found);
    for (IPin* next = nullptr; pins->Next(1, &next, nullptr) == S_OK;) {
        const ComPtr<IPin> pin(next);
        PIN_DIRECTION direction{};
        if (SUCCEEDED(pin->QueryDirection(&direction)) && direction == wanted) {
            visit(*pin);
        }
    }
}

bool isFed(IBaseFilter& renderer) {
    bool fed = false;
    forEachPin(renderer, PINDIR_INPUT, [&](IPin& pin) {
        IPin* source = nullptr;
        if (FAILED(pin.ConnectedTo(&source))) {
            return;
        }
        source->Release();
        fed = true;
    });
    return fed;
}

/// A text of the system's code page.
std::wstring wide(const std::string& text) {
    const auto length = static_cast<int>(text.size());
    std::wstring result(text.size(), L'\0');
    result.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(), length)));
    return result;
}

/// Connects the file with the renderer; false when no sound comes out of it.
bool connect(IFilterGraph2& graph, IBaseFilter& renderer, const std::string& fileName) {
    if (FAILED(graph.AddFilter(&renderer, L"Sound"))) {
        return false;
    }
    IBaseFilter* added = nullptr;
    if (FAILED(graph.AddSourceFilter(wide(fileName).c_str(), L"File", &added))) {
        return false;
    }
    const ComPtr<IBaseFilter> source(added);
    // Only to the renderer that is there: no window may come up for the pictures of a film.
    forEachPin(*source, PINDIR_OUTPUT,
               [&](IPin& pin) { graph.RenderEx(&pin, AM_RENDEREX_RENDERTOEXISTINGRENDERERS, nullptr); });
    // The results tell nothing: they are also failures where the pictures of a film find no renderer.
    return isFed(renderer);
}

} // namespace

struct AudioGraph::Components {
    Apartment apartment; // left last
    ComPtr<IFilterGraph2> graph;
    ComPtr<IMediaControl> control;
    ComPtr<IMediaEvent> events;
    ComPtr<IMediaSeeking> seeking;
};

std::unique_ptr<AudioGraph> AudioGraph::make(const std::string& fileName) {
    auto components = std::make_unique<Components>();
    // First, as it is soon told where there is no device.
    const auto renderer = win32::make<IBaseFilter>(CLSID_DSoundRender, IID_IBaseFilter);
    if (!renderer) {
        return nullptr;
    }
    components->graph = win32::make<IFilterGraph2>(CLSID_FilterGraph, IID_IFilterGraph2);
    if (!components->graph || !connect(*components->graph, *renderer, fileName)) {
        return nullptr;
    }
    components->control = faceOf<IMediaControl>(*components->graph, IID_IMediaControl);
    components->events = faceOf<IMediaEvent>(*components->graph, IID_IMediaEvent);
    components->seeking = faceOf<IMediaSeeking>(*components->graph, IID_IMediaSeeking);
    if (!components->control || !components->events || !components->seeking) {
        return nullptr;
    }
    return std::unique_ptr<AudioGraph>(new AudioGraph(std::move(components)));
}

AudioGraph::AudioGraph(std::unique_ptr<Components> components) : components_(std::move(components)) {
    living.push_back(this);
}

AudioGraph::~AudioGraph() {
    std::erase(living, this);
    stop();
}

void AudioGraph::takeDownAll() {
    for (AudioGraph* graph : living) {
        graph->stop();
        graph->components_ = nullptr;
    }
}

bool AudioGraph::run() {
    endReported(); // what is left of an earlier run
    movedAt_ = clockNow();
    return SUCCEEDED(components_->control->Run());
}

void AudioGraph::stop() { components_->control->Stop(); }

void AudioGraph::pause() { components_->control->Pause(); }

std::int64_t AudioGraph::length() const {
    LONGLONG units = 0;
    return SUCCEEDED(components_->seeking->GetDuration(&units)) ? units / unitsOfMillisecond : 0;
}

std::int64_t AudioGraph::position() const {
    LONGLONG units = 0;
    return SUCCEEDED(components_->seeking->GetCurrentPosition(&units)) ? units / unitsOfMillisecond : 0;
}

void AudioGraph::moveTo(std::int64_t position) {
    LONGLONG units = position * unitsOfMillisecond;
    components_->seeking->SetPositions(&units, AM_SEEKING_AbsolutePositioning, nullptr,
                                       AM_SEEKING_NoPositioning);
    movedAt_ = clockNow();
}

bool AudioGraph::over() { return endReported() || standsStill(); }

bool AudioGraph::endReported() {
    bool reported = false;
    long code = 0;
    LONG_PTR first = 0;
    LONG_PTR second = 0;
    while (components_->events->GetEvent(&code, &first, &second, 0) == S_OK) {
        reported = reported || code == EC_COMPLETE || code == EC_ERRORABORT || code == EC_USERABORT;
        components_->events->FreeEventParams(code, first, second);
    }
    return reported;
}

bool AudioGraph::standsStill() {
    constexpr std::int64_t patience = 5000; // milliseconds
    LONGLONG position = 0;
    if (SUCCEEDED(components_->seeking->GetCurrentPosition(&position)) && position != position_) {
        position_ = position;
        movedAt_ = clockNow();
    }
    return clockNow() - movedAt_ > patience;
}

} // namespace sys::win32
