#include <qxfmt/net.h>

#include "support/platform.h"
#include "support/test.h"

namespace {

// What the text is as an address of the system, with a port and without; and the text again.
template <typename Address>
void ExpectBothWays(WideText text, const Address& expected) {
  Address read;
  std::memset(&read, 0xEE, sizeof read);
  ASSERT_TRUE(qxfmt::ReadAddress(text, read)) << Utf8(text);
  EXPECT_EQ(std::memcmp(&read, &expected, sizeof read), 0) << Utf8(text);
  CQXDataFormat format;
  EXPECT_EQ(std::u16string(qxfmt::FormatAddress(format, expected)), text);
}

template <typename Address>
void ExpectRefused(const std::vector<WideText>& texts) {
  for (const WideText text : texts) {
    Address read;
    std::memset(&read, 0xEE, sizeof read);
    const Address before = read;
    EXPECT_FALSE(qxfmt::ReadAddress(text, read)) << (text != nullptr ? Utf8(text) : Utf8(u"null"));
    EXPECT_EQ(std::memcmp(&read, &before, sizeof read), 0);
  }
}

// The same in the object that has room for every family.
template <typename Address>
sockaddr_storage Stored(const Address& address) {
  sockaddr_storage storage = {};
  std::memcpy(&storage, &address, sizeof address);
  return storage;
}

}  // namespace

TEST(Net, Ipv4) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(8080);
  address.sin_addr.s_addr = htonl(0xC0000201);
  ExpectBothWays(u"192.0.2.1", address.sin_addr);
  ExpectBothWays(u"192.0.2.1:8080", address);
  ExpectBothWays(u"192.0.2.1:8080", Stored(address));
  EXPECT_EQ(qxfmt::ToIpv4Value(address.sin_addr), QXFMT_GetIpAddress(u"192.0.2.1", nullptr));
  EXPECT_EQ(qxfmt::ToInAddr(QXFMT_BitsToMask(20)).s_addr, htonl(0xFFFFF000));
  ExpectRefused<in_addr>({nullptr, u"", u"192.0.2", u"192.0.2.1:80"});
  ExpectRefused<sockaddr_in>({nullptr, u"", u"192.0.2.1", u"192.0.2.1:", u"192.0.2.1:65536", u":80",
                              u"000192.0.2.1:80", u"192.0.2.1.:80", u"[::1]:80"});
}

TEST(Net, Ipv6) {
  sockaddr_in6 address = {};
  address.sin6_family = AF_INET6;
  address.sin6_port = htons(443);
  ASSERT_EQ(inet_pton(AF_INET6, "2001:db8::1:2", &address.sin6_addr), 1);
  ExpectBothWays(u"2001:db8::1:2", address.sin6_addr);
  ExpectBothWays(u"[2001:db8::1:2]:443", address);
  ExpectBothWays(u"[2001:db8::1:2]:443", Stored(address));
  CQXDataFormat format;
  EXPECT_EQ(Utf8(qxfmt::FormatAddress(format, Stored(address), QXFMT_IPV6_EMBEDDED_V4)),
            "[2001:db8::0.1.0.2]:443");
  EXPECT_EQ(Utf8(qxfmt::FormatAddress(format, sockaddr_storage{})), "???");
  const std::u16string blanks(97, u' ');
  sockaddr_storage read;
  EXPECT_TRUE(qxfmt::ReadAddress((u"[::" + blanks + u"]:0").c_str(), read));
  const std::u16string too_long = u"[:: " + blanks + u"]:0";
  ExpectRefused<in6_addr>({nullptr, u"", u"[::1]"});
  ExpectRefused<sockaddr_in6>({nullptr, u"", u"[", u"[::1", u"[::1]", u"[::1]:", u"[::1]80",
                               u"[]:80", u"::1]:80", u"[::1]:-1", u"1.2.3.4:80", too_long.c_str()});
  ExpectRefused<sockaddr_storage>({nullptr, u"1.2.3.4", u"::1", u"[1.2.3.4]:80"});
}

#if __has_include(<net/ethernet.h>)
TEST(Net, Mac) {
  ExpectBothWays(u"00:1A:2B:3C:4D:5E", ether_addr{{0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E}});
  ExpectRefused<ether_addr>({nullptr, u"", u"00:1A:2B:3C:4D", u"00:1A:2B:3C:4D:5G"});
}
#endif
