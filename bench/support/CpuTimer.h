// Measures on machines where others work too.
#pragma once

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>

namespace figbench {

/// Processor time of the calling thread since the object was made, in seconds.
class CpuTimer {
public:
    double Seconds() const { return Now() - start_; }

private:
    static double Now() {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
    }

    double start_ = Now();
};

/// The least of several measurements: what is left when nobody disturbs.
class Best {
public:
    void Add(double seconds) { seconds_ = std::min(seconds_, seconds); }
    double Seconds() const { return seconds_; }

private:
    double seconds_ = std::numeric_limits<double>::infinity();
};

/// Runs `work` and answers its processor time.
template <class Work>
double Measure(Work&& work) {
    CpuTimer const timer;
    work();
    return timer.Seconds();
}

/// The exponent e of a cost that grows as size^e between two measurements.
inline double GrowthExponent(double smallSize, double smallCost, double size, double cost) {
    return std::log(cost / smallCost) / std::log(size / smallSize);
}

}  // namespace figbench
