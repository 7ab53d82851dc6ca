// A lost output is put away first, whatever else is going on.
#include "platform/audio/player/track_state.h"

TrackState StateOf(TrackStage stage, bool held, OutputState output) {
    const auto state = [held](TrackState going, TrackState paused) {
        return held ? paused : going;
    };
    if (stage == TrackStage::Empty) return TrackState::Empty;
    if (stage == TrackStage::Reading) return TrackState::Reading;
    if (output == OutputState::Lost) return TrackState::Lost;
    if (stage == TrackStage::Seeking) return state(TrackState::Seeking, TrackState::SeekingHeld);
    if (stage == TrackStage::Ended) return state(TrackState::Ended, TrackState::EndedHeld);
    if (output == OutputState::Closed) return state(TrackState::Finding, TrackState::FindingHeld);
    if (output == OutputState::Opening) return state(TrackState::Opening, TrackState::OpeningHeld);
    return state(TrackState::Playing, TrackState::Held);
}
