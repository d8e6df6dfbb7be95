#pragma once

#include "platform/instance/InstanceMessage.h"

/// What the program tells its caller. Fixed: scripts depend on the numbers.
enum class ExitCode : int {
    Done = 0,
    Failed = 1,   ///< nothing half-written unless the message says so
    Usage = 2,    ///< the command line can't be understood
    Refused = 3,  ///< the running window owns what was asked for and can't be told
    NotFound = 4  ///< an identity, a name, a file
};

/// How the program ends after a reply of the owner of timers or settings.
[[nodiscard]] constexpr ExitCode ExitFor(ReplyReason reason) {
    switch (reason) {
        case ReplyReason::Done:
            return ExitCode::Done;
        case ReplyReason::Failed:
            return ExitCode::Failed;
        case ReplyReason::NotUnderstood:
            return ExitCode::Usage;
        case ReplyReason::WindowOwns:
        case ReplyReason::WindowEnds:
            return ExitCode::Refused;
        case ReplyReason::NotFound:
            return ExitCode::NotFound;
    }
    return ExitCode::Failed;
}
