// The pictures compiled into Skelda: the weather symbols of the day chart, ":/symbols/<KEY>.png"
// for the keys SUN, RAIN, SUNCLOUD, CLOUD, STORM, RAINSTORM, FOG, RAINBIG and SNOW (16 by 16),
// the start-up picture ":/app/splash.png" (324 by 537), the icon ":/app/skelda.png" and the
// background of the monthly plot ":/statistics/plot.png" (525 by 367, 16 colours).
#pragma once

// Registers the pictures with Qt's resource system. Linking the library registers them already
// at start; calling this as well is harmless, and makes sure of it wherever the linker might
// have left them out.
void InitArtwork();
