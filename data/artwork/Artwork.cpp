#include "Artwork.h"

#include <QtGlobal>

void InitArtwork() { Q_INIT_RESOURCE(artwork); }
