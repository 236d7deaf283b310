#include "meter/totals.h"

#include <string>
#include <string_view>

#include "meter/addresses.h"
#include "shared/printable.h"

namespace meter {

namespace {

std::u16string WithPrefix(ResultText address, CQXDataFormat& format, int prefix) {
  std::u16string text = address;
  text += u'/';
  text += format.FormatNumber(prefix, 0);
  return text;
}

class AddressRows {
 public:
  AddressRows(programs::Table& table, CQXDataFormat& format) : table_(table), format_(format) {}

  void Add(const std::string& interface, std::u16string_view address, ResultText mask) {
    table_.Add(programs::Printable(interface));
    table_.Add(address);
    table_.Add(mask);
  }

  void Add(const std::string& interface, const Addresses& addresses) {
    for (const Ipv4Address& ipv4 : addresses.ipv4) {
      const ResultText text = format_.FormatIpAddress(ipv4.address);
      Add(interface, WithPrefix(text, format_, QXFMT_MaskToBits(ipv4.mask)),
          format_.FormatIpAddress(ipv4.mask));
    }
    for (const Ipv6Address& ipv6 : addresses.ipv6) {
      const ResultText text = format_.FormatIPv6Address(ipv6.address.data(), QXFMT_IPV6_COMPRESSED);
      Add(interface, WithPrefix(text, format_, ipv6.prefix), u"-");
    }
  }

 private:
  programs::Table& table_;
  CQXDataFormat& format_;
};

}  // namespace

programs::Table TotalsTable(CQXDataFormat& format, const Options& options,
                            const std::vector<Interface>& interfaces) {
  programs::Table table({"interface", "state", "link", "received", "packets", "errors", "drops",
                         "sent", "packets", "errors", "drops"});
  for (const Interface& interface : interfaces) {
    const std::string state = programs::Printable(interface.state);
    table.Add(programs::Printable(interface.name));
    table.Add(state.empty() ? "-" : state);
    table.Add(interface.megabits == 0
                  ? u"-"
                  : format.FormatBitPerSecond(interface.megabits * 1'000'000, QXFMT_BYTES_AUTO, 1));
    for (const Direction& direction : {interface.received, interface.sent}) {
      table.Add(format.FormatByte(direction.bytes, options.unit, options.decimals));
      table.Add(format.FormatNumber(direction.packets, 1));
      table.Add(format.FormatNumber(direction.errors, 1));
      table.Add(format.FormatNumber(direction.drops, 1));
    }
  }
  return table;
}

programs::Table AddressTable(CQXDataFormat& format, const Options& options,
                             const std::vector<Interface>& interfaces) {
  programs::Table table({"interface", "address", "mask"}, 3);
  AddressRows rows(table, format);
  for (const Interface& interface : interfaces) {
    const std::u16string mac = ReadMac(options.root, interface.name);
    rows.Add(interface.name, mac.empty() ? u"-" : mac, u"-");
    // The kernel tells addresses of the running host alone, not of recorded counters.
    if (options.root.empty()) rows.Add(interface.name, ReadAddresses(interface.name));
  }
  return table;
}

}  // namespace meter
