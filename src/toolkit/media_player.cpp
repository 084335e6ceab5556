#include "toolkit/media_player.h"

#include "toolkit/application.h"

namespace toolkit {

void MediaPlayer::play() {
    if (Observer* observer = Application::current().observer()) {
        observer->mediaPlayed(fileName_);
    }
}

} // namespace toolkit
