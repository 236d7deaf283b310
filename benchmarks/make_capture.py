"""Writes a capture as an office network might give it: TCP over IPv4 and IPv6, UDP, ICMP and ARP
between some hundreds of hosts, with the same packets on every run.
usage: make_capture.py FILE PACKETS
"""

import random
import struct
import sys


def ethernet(kind, payload):
    return b"\x00\x1a\x2b\x3c\x4d\x5e\x02\x00\x00\x00\x00\x01" + struct.pack(">H", kind) + payload


def ipv4(source, destination, protocol, payload):
    return ethernet(0x0800, struct.pack(">BBHHHBBH4s4s", 0x45, 0, 20 + len(payload), 0, 0x4000, 64,
                                        protocol, 0, source, destination) + payload)


def ipv6(source, destination, protocol, payload):
    return ethernet(0x86DD, struct.pack(">IHBB16s16s", 6 << 28, len(payload), protocol, 64, source,
                                        destination) + payload)


def tcp(source, destination, flags, size):
    return struct.pack(">HHIIBBHHH", source, destination, 1, 1, 0x50, flags, 501, 0, 0) + bytes(size)


def udp(source, destination, size):
    return struct.pack(">HHHH", source, destination, 8 + size, 0) + bytes(size)


def packet(random_source):
    """One packet, with the addresses of one of its hosts."""
    pick = random_source.randrange
    inside = bytes((10, 0, pick(4), pick(1, 255)))
    outside = bytes((pick(1, 224), pick(256), pick(256), pick(1, 255)))
    port = pick(32768, 61000)
    flags = random_source.choice((0x10, 0x10, 0x10, 0x18, 0x18, 0x02, 0x12, 0x11))
    size = random_source.choice((0, 0, 16, 120, 400))
    kind = pick(100)
    if kind < 60:
        return ipv4(inside, outside, 6, tcp(port, 443, flags, size))
    if kind < 80:
        network = b"\x20\x01\x0d\xb8" + bytes(8)
        return ipv6(network + inside, network + outside, 6, tcp(443, port, flags, size))
    if kind < 96:
        return ipv4(outside, inside, 17, udp(53, port, size))
    if kind < 98:
        return ipv4(inside, outside, 1, b"\x08\x00" + bytes(62))
    return ethernet(0x0806, struct.pack(">HHBBH6s4s6s4s", 1, 0x0800, 6, 4, 1,
                                        b"\x00\x1a\x2b\x3c\x4d\x5e", inside, bytes(6),
                                        bytes((10, 0, 0, 1))) + bytes(18))


def main():
    path, packets = sys.argv[1], int(sys.argv[2])
    random_source = random.Random(1)
    samples = [packet(random_source) for _ in range(4096)]
    time = 1_700_000_000_000_000  # microseconds
    with open(path, "wb") as file:
        file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 262144, 1))
        for _ in range(packets):
            time += random_source.randrange(1, 2000)
            data = samples[random_source.randrange(len(samples))]
            file.write(struct.pack("<IIII", time // 1_000_000, time % 1_000_000, len(data), len(data)))
            file.write(data)


main()
