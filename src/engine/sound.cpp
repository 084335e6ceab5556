// The sound list that runs beside the show.
#include "show/main_form.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/numbers.h"

using toolkit::PlayState;

void MainForm::Timer2_Timer() {
    if (ShowEnding != 0 || shared.SoundMode != soundList) {
        return;
    }
    WriteLog("S: MainForm Timer2");
    const PlayState state = MediaPlayer1.playState();
    Label2.setCaption("Media Player=" + toolkit::textOf(static_cast<std::int32_t>(state)));
    if (state == PlayState::stopped || state == PlayState::paused || state == PlayState::closed) {
        playNextOfSoundList();
    }
    WriteLog("E: MainForm Timer2");
}

/// The list begins anew behind its last sound. The player starts each sound by itself.
void MainForm::playNextOfSoundList() {
    SoundListIndex = toolkit::wrap16(SoundListIndex + 1);
    if (SoundListIndex > shared.SoundLast) {
        SoundListIndex = 0;
    }
    if (shared.RunMode == 0) {
        MediaPlayer1.setFileName(itemText(shared.ImageSounds, SoundListIndex));
        return;
    }
    MediaPlayer1.setFileName("");
    MediaPlayer1.stop();
    LoadImbeddedSound(SoundListIndex);
    if (!ExtractedSound.empty()) {
        MediaPlayer1.setFileName(ExtractedSound);
    }
}
