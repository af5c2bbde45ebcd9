#pragma once

#include "unit/call.h"

#include <map>
#include <optional>

namespace kelvo {

/// Sees the console's calls and remembers what the unit last took or told, found out without the console's
/// own bookkeeping.
class Witness : public CallObserver {
  public:
    /// A connection begins, or another console.
    void Forget();

    /// Empty until the unit took or told it since the last connection.
    std::optional<AudioBlock> audio;
    std::optional<SystemBlock> system;
    std::optional<Word> fader, mute, format;
    /// What screen and unit last had in common: a read for comparing shows nothing.
    std::optional<AudioBlock> agreedAudio;
    std::optional<SystemBlock> agreedSystem;
    bool apart = false; ///< such a read may come

    int calls = 0; ///< all of them
    std::map<Operation, int> callsOf{};
    bool connected = false;    ///< a connection has begun
    bool signalFailed = false; ///< a noise, a phase or RT60 could not be switched
    bool streamFailed = false; ///< a stream could not be begun or stopped, or what goes with it
    Operation lastFailed{};

    void Before(const Call &call) override;
    void After(const Call &call, Status status, std::chrono::microseconds taken) override;

  private:
    void NoteSuccess(const Call &call);
    void NoteFailure(Operation operation);
    void NoteRead(const Call &call);

    struct Records {
        std::optional<AudioBlock> audio;
        std::optional<SystemBlock> system;
        std::optional<AudioBlock> agreedAudio;
        std::optional<SystemBlock> agreedSystem;
    };
    std::optional<Records> beforeRead_; ///< while both records are being read
    int failuresOfRead_ = 0;            ///< one after another
    bool readFailed_ = false;
};

} // namespace kelvo
