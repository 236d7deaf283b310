#include <cstdint>
#include <string>

#include "comparison.h"

namespace qxfmt::bench {

namespace {

// Sets what is set already: the rows of the formatters read the settings too.
template <typename Setting>
void AddSetting(const std::string& name, void (*set)(Setting), Setting (*get)()) {
  Compare("QXFMT_Set" + name, PacketSizes(), [set, start = get()](std::uint32_t) {
    set(start);
    return 0;
  });
  Compare("QXFMT_Get" + name, PacketSizes(), [get](std::uint32_t) { return get(); });
}

}  // namespace

void AddSettingRows() {
  AddSetting("ByteFormat", QXFMT_SetByteFormat, QXFMT_GetByteFormat);
  AddSetting("BitFormat", QXFMT_SetBitFormat, QXFMT_GetBitFormat);
  AddSetting("BytePerSecondFormat", QXFMT_SetBytePerSecondFormat, QXFMT_GetBytePerSecondFormat);
  AddSetting("BitPerSecondFormat", QXFMT_SetBitPerSecondFormat, QXFMT_GetBitPerSecondFormat);
  AddSetting("NumberDecimalPlaces", QXFMT_SetNumberDecimalPlaces, QXFMT_GetNumberDecimalPlaces);
  AddSetting("PercentageDecimalPlaces", QXFMT_SetPercentageDecimalPlaces,
             QXFMT_GetPercentageDecimalPlaces);
  AddSetting("DateTimeFormat", QXFMT_SetDateTimeFormat, QXFMT_GetDateTimeFormat);
  AddSetting("TimeAccuracy", QXFMT_SetTimeAccuracy, QXFMT_GetTimeAccuracy);
  AddSetting("DurationFormat", QXFMT_SetDurationFormat, QXFMT_GetDurationFormat);
}

}  // namespace qxfmt::bench
