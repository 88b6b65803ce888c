// The random draw seam: Randomize reseeds from the clock, Rnd draws a number in [0, 1).
#pragma once

#include <random>

namespace skelda {

class Random {
public:
    virtual ~Random() = default;
    virtual void Randomize() = 0;
    virtual double Rnd() = 0;
};

class SystemRandom : public Random {
public:
    void Randomize() override;
    double Rnd() override;

private:
    std::mt19937 engine_{std::random_device{}()};
};

}  // namespace skelda
