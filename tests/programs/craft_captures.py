"""Writes the captures whose packets no program sends: see make-captures.
usage: craft_captures.py DIRECTORY
"""

import struct
import sys

ETHERNET, NULL, RAW, LOOP, USER = 1, 0, 101, 108, 147
MAC_A, MAC_B = bytes.fromhex("02000000000a"), bytes.fromhex("02000000000b")
V4_A, V4_B = bytes((192, 0, 2, 1)), bytes((198, 51, 100, 2))
V6_A = bytes.fromhex("20010db8000000000000000000000001")
V6_B = bytes.fromhex("20010db80000000000000000000000ff")


def ethernet(kind, payload):
    return MAC_B + MAC_A + struct.pack(">H", kind) + payload


def vlan(kind, identifier, inner_kind, payload):
    return ethernet(kind, struct.pack(">HH", identifier, inner_kind) + payload)


def ipv4(protocol, payload, options=b"", fragment=0, total=None, first=None):
    header = 20 + len(options)
    total = header + len(payload) if total is None else total
    first = 0x40 | header // 4 if first is None else first
    return struct.pack(">BBHHHBBH", first, 0, total, 1, fragment, 64, protocol, 0) + V4_A + V4_B \
        + options + payload


def ipv6(following, payload, first=0x60):
    return struct.pack(">BBHHBB", first, 0, 0, len(payload), following, 64) + V6_A + V6_B + payload


def tcp(flags, offset=5, size=0):
    return struct.pack(">HHIIBBHHH", 40000, 443, 1, 2, offset << 4, flags, 501, 0, 0) + bytes(size)


def udp(length=None, size=8):
    length = 8 + size if length is None else length
    return struct.pack(">HHHH", 40001, 53, length, 0) + bytes(size)


def arp(operation, hardware=1, hardware_size=6):
    sender, target = MAC_A[:hardware_size].ljust(hardware_size, b"\0"), bytes(hardware_size)
    return struct.pack(">HHBBH", hardware, 0x0800, hardware_size, 4, operation) + sender + V4_A \
        + target + V4_B


NOTHING_OPTIONS = b"\x01\x04\x00\x00\x00\x00"  # fills up an IPv6 header of options
PACKETS = [
    vlan(0x8100, 0x2000 | 10, 0x0800, ipv4(6, tcp(0x02))),
    vlan(0x88A8, 100, 0x8100, struct.pack(">HH", 10, 0x86DD) + ipv6(17, udp())),
    ethernet(38, bytes.fromhex("424203") + bytes(43)),  # 802.3: a length, then LLC
    ethernet(0x88CC, bytes(46)),
    ethernet(0x0800, ipv4(6, tcp(0x12), options=b"\x94\x04\x00\x00")),
    ethernet(0x0800, ipv4(17, udp(length=1200, size=584), fragment=0x2000)),
    ethernet(0x0800, ipv4(17, bytes(600), fragment=74)),
    ethernet(0x86DD, ipv6(0, b"\x3a\x00\x05\x02\x00\x00\x01\x00" + b"\x8f\x00" + bytes(26))),
    ethernet(0x86DD, ipv6(44, b"\x11\x00\x00\x01\x00\x00\x00\x07" + udp(length=1200, size=584))),
    ethernet(0x86DD, ipv6(44, b"\x11\x00\x02\x50\x00\x00\x00\x07" + bytes(600))),
    ethernet(0x86DD, ipv6(43, b"\x3c\x02\x04\x00\x00\x00\x00\x00" + V6_B
                          + b"\x06\x00" + NOTHING_OPTIONS + tcp(0x18, size=5))),
    ethernet(0x86DD, ipv6(51, b"\x06\x04\x00\x00" + bytes(20) + tcp(0x10))),
    ethernet(0x0800, ipv4(89, bytes(44))),
    ethernet(0x86DD, ipv6(59, b"")),
    ethernet(0x0800, ipv4(1, b"\x03\x03\x00\x00\x00\x00\x00\x00" + ipv4(17, udp()))),
    ethernet(0x0800, ipv4(1, b"\x2a\x07\x00\x00\x00\x00\x00\x00")),
    ethernet(0x0806, arp(1)),
    ethernet(0x0806, arp(2)),
    ethernet(0x0806, arp(9)),
    ethernet(0x0806, arp(1, hardware=6, hardware_size=8)),
    ethernet(0x0800, ipv4(6, tcp(0x00))),
    ethernet(0x0800, ipv4(6, tcp(0xE9))),
    ethernet(0x0800, ipv4(6, tcp(0x18, size=100), total=0)),  # as segmentation offload leaves it
    ethernet(0x0800, ipv4(6, tcp(0x14)) + bytes(6)),          # padded to 60 bytes
]
MALFORMED = [
    b"\x02\x00\x00",
    ethernet(0x8100, b"\x00"),
    ethernet(0x0800, ipv4(6, tcp(0x02), first=0x44)),
    ethernet(0x0800, ipv4(6, tcp(0x02), first=0x65)),
    ethernet(0x0800, ipv4(6, tcp(0x02), total=19)),
    ethernet(0x0800, ipv4(6, tcp(0x02)[:10])),
    ethernet(0x0800, ipv4(6, tcp(0x02))[:16]),
    ethernet(0x0800, ipv4(6, tcp(0x02, offset=4))),
    ethernet(0x0800, ipv4(6, tcp(0x02, offset=15))),
    ethernet(0x0800, ipv4(17, udp(length=7))),
    ethernet(0x0800, ipv4(1, b"\x08")),
    ethernet(0x86DD, ipv6(6, tcp(0x02), first=0x40)),
    ethernet(0x86DD, ipv6(0, b"\x06\xff\x00\x00\x00\x00\x00\x00" + tcp(0x02))),
    ethernet(0x0806, arp(1)[:20]),
]


def pcap(link, packets, order="<", start=1_700_000_000, step=1_000_100, snaplen=262144):
    """`packets` are bytes, or pairs of the bytes captured and the length claimed."""
    data = struct.pack(order + "IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, snaplen, link)
    for number, packet in enumerate(packets):
        captured, length = packet if isinstance(packet, tuple) else (packet, len(packet))
        time = start * 1_000_000 + number * step
        data += struct.pack(order + "IIII", time // 1_000_000, time % 1_000_000, len(captured),
                            length) + captured
    return data


def pcapng(blocks):
    def block(kind, body):
        body += bytes(-len(body) % 4)
        size = struct.pack("<I", 12 + len(body))
        return struct.pack("<I", kind) + size + body + size
    data = block(0x0A0D0D0A, struct.pack("<IHHq", 0x1A2B3C4D, 1, 0, -1))
    data += block(1, struct.pack("<HHI", ETHERNET, 0, 262144) + b"\x09\x00\x01\x00\x09" + bytes(7))
    for time, packet in blocks:
        data += block(6, struct.pack("<IIIII", 0, time >> 32, time & 0xFFFFFFFF, len(packet),
                                     len(packet)) + packet)
    return data


def main():
    def write(name, data):
        with open(f"{sys.argv[1]}/{name}", "wb") as file:
            file.write(data)

    packet = ethernet(0x0800, ipv4(17, udp()))
    write("crafted.pcap", pcap(ETHERNET, PACKETS))
    write("malformed.pcap", pcap(ETHERNET, MALFORMED))
    # Each length at which a capture can cut these.
    longest = ethernet(0x86DD, ipv6(0, b"\x06\x00" + NOTHING_OPTIONS + tcp(0x02)))
    sizes = (0, 13, 14, 53, 54, 61, 62, 65, 66, 76, 82)
    write("truncated.pcap", pcap(ETHERNET, [(longest[:size], len(longest)) for size in sizes]))
    write("raw-big-endian.pcap", pcap(RAW, [ipv4(17, udp()), ipv6(6, tcp(0x01)), b"\x50"], ">"))
    write("null.pcap", pcap(NULL, [b"\x02\0\0\0" + ipv4(17, udp()), b"\0\0\0\x1e" + ipv6(6, tcp(1)),
                                   b"\x07\0\0\0" + bytes(20)]))
    write("loop.pcap", pcap(LOOP, [b"\0\0\0\x02" + ipv4(17, udp()),
                                   b"\0\0\0\x18" + ipv6(6, tcp(1))]))
    write("unknown-link.pcap", pcap(USER, [b"12345"]))
    write("empty.pcap", pcap(ETHERNET, []))
    # Not in order; the second 0; beyond what nanoseconds in 64 bits reach.
    second = 1_000_000_000
    write("times.pcapng", pcapng([(1_700_000_000 * second + 1, packet),
                                  (1_699_999_999 * second + 999_999_999, packet),
                                  (0, packet), (10_000_000_000 * second, packet)]))
    claim = pcap(ETHERNET, [packet, (packet, 0xFFFFFFFF)])
    place = len(claim) - len(packet) - 8
    write("claims-4gb.pcap", claim[:place] + b"\xff\xff\xff\xff" + claim[place + 4:])
    claim = pcapng([(second, packet)])
    write("claims-4gb.pcapng", claim + b"\x06\0\0\0\xfc\xff\xff\xff" + bytes(24))


main()
