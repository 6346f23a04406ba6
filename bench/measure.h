#pragma once

// How the benchmarks measure: the same work several times, the median of it, and a ratio to a peer in the same run.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace bench {

inline constexpr int Rounds = 7;

inline double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// `values` must not be empty.
inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct TPair {
    double Ours = 0;
    double Peer = 0;
};

/// Medians of two works that take turns, so that what disturbs the machine disturbs both.
inline TPair MedianPair(const std::function<double()>& ours, const std::function<double()>& peer) {
    std::vector<double> first;
    std::vector<double> second;
    for (int round = 0; round < Rounds; ++round) {
        second.push_back(peer());
        first.push_back(ours());
    }
    return {Median(first), Median(second)};
}

/// One line: what was measured, the peer beside it, the ratio and the aim for it.
inline void PrintRatio(const char* what, TPair pair, const char* unit, double aim) {
    std::printf("%-28s %9.2f %s   peer %9.2f %s   ratio %.2f (aim %.2f)\n", what, pair.Ours, unit, pair.Peer, unit,
                pair.Ours / pair.Peer, aim);
}

} // namespace bench
