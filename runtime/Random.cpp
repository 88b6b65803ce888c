#include "Random.h"

#include <chrono>

namespace skelda {

void SystemRandom::Randomize() {
    engine_.seed(static_cast<std::mt19937::result_type>(std::chrono::steady_clock::now().time_since_epoch().count()));
}

double SystemRandom::Rnd() { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }

}  // namespace skelda
