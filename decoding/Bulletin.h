// The decoded result of one METAF text.
#pragma once
