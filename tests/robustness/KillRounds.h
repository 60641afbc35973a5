#pragma once

#include "shell/modStringRes.h"

#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace nesk::testing {

/// The main function of a program that kills itself, in a second process, again and again.
///
///     PROGRAM [KILLS [SEED]]
///
/// Ends with 0 if each round left what it must leave, and enough kills hit the moments that matter.
/// @tparam Killer  kills once with bool Round(random); bool HitEnough(kills) tells whether so many kills were
///                 enough, and bool Finish(kills) reports and checks the end
/// @param role     first argument of the second process
/// @param victim   what that process does: with the folder of the station, a seed, and the descriptor to
/// which
///                 it reports
template <typename Killer>
int RunKills(int count, char** values, const std::string& role,
             const std::function<int(const std::string&, unsigned, const std::string&)>& victim) {
    const std::vector<std::string> arguments(values, values + count);
    const auto number = [&](std::size_t index) {
        return static_cast<unsigned>(std::stoul(arguments[index]));
    };
    modStringRes::InitStringRes(1033);
    if (count == 5 && arguments[1] == role) return victim(arguments[2], number(3), arguments[4]);
    const int kills = count > 1 ? static_cast<int>(number(1)) : 300;
    const unsigned seed = count > 2 ? number(2) : std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    Killer killer;
    // The duration of a step varies between machines, so short steps may need more kills to be hit.
    int kill = 0;
    while (kill < kills || (!killer.HitEnough(kill) && kill < 10 * kills)) {
        ++kill;
        if (killer.Round(random)) continue;
        std::cerr << "after kill " << kill << "\n";
        return 1;
    }
    return killer.Finish(kill) ? 0 : 1;
}

} // namespace nesk::testing
