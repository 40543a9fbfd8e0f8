#pragma once
// A host timer that keeps its interval and whether it is enabled, and starts its countdown anew
// whenever either is set; an interval of 0 never ticks. A host gives only the start and the stop.

#include <cstdint>

#include "control/host.h"

namespace vex::control {

class RestartingTimer : public HostTimer {
public:
    void SetInterval(int32_t milliseconds) final
    {
        interval_ = milliseconds;
        Restart();
    }
    int32_t Interval() const final { return interval_; }
    void SetEnabled(bool enabled) final
    {
        enabled_ = enabled;
        Restart();
    }
    bool Enabled() const final { return enabled_; }

protected:
    // Starts the countdown at milliseconds (more than 0), replacing one that runs.
    virtual void Start(int32_t milliseconds) = 0;
    virtual void Stop() = 0;

private:
    void Restart()
    {
        if (enabled_ && interval_ > 0)
            Start(interval_);
        else
            Stop();
    }

    int32_t interval_ = 0;
    bool enabled_ = false;
};

} // namespace vex::control
