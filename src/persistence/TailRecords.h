#pragma once

#include "persistence/RecordFields.h"

namespace velna {

class TextSink;
class ValueReader;
class VertWingSection;

// The record of the fin. A read throws ReadFailure where the file fails; the fields behind the
// failure keep their values.

/// The lines of the record as this version writes it, behind its head word.
RecordFields<VertWingSection> finFields();

void saveFin(TextSink& file, const VertWingSection& fin);
void readFin(ValueReader& file, VertWingSection& fin);
void readFinV101(ValueReader& file, VertWingSection& fin);
void readFinV030(ValueReader& file, VertWingSection& fin);
void readFinV0212(ValueReader& file, VertWingSection& fin);

}  // namespace velna
