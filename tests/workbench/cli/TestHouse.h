// A house small enough to be summed by hand, as an IFC text, and a material table for it.
#pragma once

#include <string>

namespace clitest {

inline constexpr char WallId[] = "00000000000000000Wall1";
inline constexpr char SlabId[] = "00000000000000000Slab1";
inline constexpr char DoorId[] = "00000000000000000Door1";

/// Wall: 2 m3, 10 m2, layers of 0.3 m Brick (1.5 m3) and 0.1 m Wood (0.5 m3). Slab: 4 m3, 20 m2 of Concrete. One door
/// "Haustür", two windows "Window A" of 1.5 x 1.2 m and 1 x 1 m. Gross floor area 100 m2. Units are metres.
/// `brick` is the name of the material Brick in the file's own escapes; `more` is added to the data section.
[[nodiscard]] std::string HouseText(const std::string& more = {}, const std::string& brick = "Brick");

/// Brick 200 per m3 for 30 years, Wood -3 per m2, Concrete 0.1 per kg at 2400 kg/m3, doors 50 a piece, windows 40 per
/// m2.
inline constexpr char HouseTable[] = "applies_to;name;unit;gwp;service_life;density\n"
                                     "material;brick;m3;200;30;\n"
                                     "material;wo*d;m2;-3;;\n"
                                     "material;Concrete;kg;0,1;0;2400\n"
                                     "door;haust*;piece;50;;\n"
                                     "window;Window A;m2;40;;\n";

} // namespace clitest
