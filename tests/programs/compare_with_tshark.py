"""Compares qxfmt-capture with tshark: see scripts/check-capture-tshark.
usage: compare_with_tshark.py PROGRAM FILE...

What cannot be compared: link-layer addresses where tshark shows none, and beyond the lengths of
truncated and malformed packets what only one of the two still reads.
"""

import calendar
import csv
import ipaddress
import os
import subprocess
import sys
import time

FIELDS = ["frame.number", "frame.time_epoch", "frame.len", "frame.protocols", "ip.src", "ip.dst",
          "ipv6.src", "ipv6.dst", "eth.src", "eth.dst", "tcp.srcport", "tcp.dstport", "udp.srcport",
          "udp.dstport", "tcp.flags", "icmp.type", "icmp.code", "icmpv6.type", "icmpv6.code",
          "ieee8021ad.id", "vlan.id"]
# Each packet by itself, no header read that starts in another one.
SETTINGS = ["-o", "ip.defragment:FALSE", "-o", "ipv6.defragment:FALSE"]
FLAGS = ["FIN", "SYN", "RST", "PSH", "ACK", "URG", "ECE", "CWR"]
ICMP = {"0": "echo reply", "3": "destination unreachable", "8": "echo request"}
ICMPV6 = {"1": "destination unreachable", "128": "echo request", "129": "echo reply",
          "143": "multicast listener report"}
OUT_OF_RANGE = 9_000_000_000 * 10**9


def run(command):
    environment = dict(os.environ, TZ="UTC", LC_ALL="C")
    # Both fail on damaged captures, after they have shown what comes before.
    return subprocess.run(command, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False, text=True).stdout


def nanoseconds_of_epoch(text):
    seconds, _, fraction = text.partition(".")
    return int(seconds) * 10**9 + int(fraction.ljust(9, "0")[:9] or 0)


def nanoseconds_of_stamp(text):
    if text == "-":
        return 0
    stamp, fraction = text.split(".")
    return calendar.timegm(time.strptime(stamp, "%Y/%m/%d %H:%M:%S")) * 10**9 + int(fraction)


def outermost(protocols):
    """The network and the transport protocol of the packet itself, not of what it carries."""
    names = protocols.split(":")
    network = next((name for name in names if name in ("ip", "ipv6", "arp")), "")
    rest = names[names.index(network) + 1:] if network else []
    rest = [name for name in rest if not name.startswith("ipv6.") and name != "ah"]
    transport = rest[0] if rest and rest[0] in ("tcp", "udp", "icmp", "icmpv6") else ""
    return network, transport


def expected(fields):
    """What qxfmt-capture should say, of a packet as tshark sees it."""
    network, transport = outermost(fields["frame.protocols"])
    row = {"number": fields["frame.number"], "length": fields["frame.len"], "info": []}
    prefix = network if network in ("ip", "ipv6") else "eth"
    row["source"], row["destination"] = fields[prefix + ".src"], fields[prefix + ".dst"]
    row["source port"] = row["destination port"] = ""
    if transport in ("tcp", "udp"):
        row["source port"] = fields[transport + ".srcport"]
        row["destination port"] = fields[transport + ".dstport"]
    names = {"icmpv6": "ICMPv6", "": {"ip": "IPv4", "ipv6": "IPv6", "arp": "ARP"}.get(network)}
    row["protocol"] = names.get(transport, transport.upper())
    tags = [fields[name] for name in ("ieee8021ad.id", "vlan.id") if fields[name]]
    if tags:
        row["info"].append("vlan " + " ".join(tags).replace(",", " "))
    if transport == "tcp" and fields["tcp.flags"]:
        bits = int(fields["tcp.flags"], 16)
        names = [name for bit, name in enumerate(FLAGS) if bits >> bit & 1]
        row["info"].append(" ".join(names) or "no flags")
    if transport in ("icmp", "icmpv6"):
        kind, code = (fields[f"{transport}.{what}"].split(",")[0] for what in ("type", "code"))
        text = (ICMP if transport == "icmp" else ICMPV6).get(kind, "type " + kind)
        row["info"].append(text + ("" if code == "0" else " code " + code))
    return row


def same_address(ours, theirs):
    if ours == "-" or not theirs:
        return theirs in ("", None)
    try:
        return ipaddress.ip_address(ours) == ipaddress.ip_address(theirs)
    except ValueError:
        return ours.lower() == theirs.lower()


def differences(ours, fields):
    wanted = expected(fields)
    info = ours["info"].split("; ") if ours["info"] else []
    is_complete = not {"truncated", "malformed"} & set(info)
    theirs = nanoseconds_of_epoch(fields["frame.time_epoch"])
    if ours["time"] == "TIME_OUT_RANGE":
        if theirs <= OUT_OF_RANGE:
            yield "time", ours["time"], theirs
    elif nanoseconds_of_stamp(ours["time"]) != theirs:
        yield "time", ours["time"], theirs
    for name in ("number", "length"):
        if ours[name] != wanted[name]:
            yield name, ours[name], wanted[name]
    if wanted["protocol"] is None or not is_complete:
        return
    for name in ("protocol", "source port", "destination port"):
        if ours[name] != wanted[name]:
            yield name, ours[name], wanted[name]
    for name in ("source", "destination"):
        if not same_address(ours[name], wanted[name]):
            yield name, ours[name], wanted[name]
    if wanted["info"] and info != wanted["info"]:
        yield "info", info, wanted["info"]


def conversations(rows):
    """Packets and bytes each way, from the rows of the list that were compared."""
    found = {}
    for row in rows:
        sides = tuple((row[side], row[side + " port"]) for side in ("source", "destination"))
        key = frozenset(sides), row["protocol"]
        source, counts = found.setdefault(key, (sides[0], [0, 0, 0, 0]))
        way = 0 if sides[0] == source else 2
        counts[way] += int(row["length"])
        counts[way + 1] += 1
    return {key: counts for key, (_, counts) in found.items()}


def compare(program, path):
    lines = run(["tshark", "-n", "-r", path, *SETTINGS, "-T", "fields", "-E", "separator=/t",
                 "-E", "occurrence=a", "-E", "aggregator=,",
                 *(argument for field in FIELDS for argument in ("-e", field))]).splitlines()
    theirs = [dict(zip(FIELDS, line.split("\t"))) for line in lines]
    for fields in theirs:
        for name in FIELDS:
            if name != "vlan.id":
                fields[name] = fields[name].split(",")[0]
    rows = list(csv.DictReader(run([program, "--csv", "-a", "ns", path]).splitlines()))
    faults = []
    if len(rows) != len(theirs):
        faults.append(f"{len(rows)} packets, tshark has {len(theirs)}")
    for ours, fields in zip(rows, theirs):
        faults += [f"packet {ours['number']}: {name} {mine!r}, tshark has {its!r}"
                   for name, mine, its in differences(ours, fields)]
    summary = list(csv.DictReader(run([program, "-S", "--csv", path]).splitlines()))
    total = {"packets": "0", "bytes": "0"} if not summary else summary[-1]
    counted = len(theirs), sum(int(fields["frame.len"]) for fields in theirs)
    if (int(total["packets"]), int(total["bytes"])) != counted:
        faults.append(f"totals {total}, tshark has {counted}")
    listed = {(frozenset(((row["source"], row["source port"]),
                          (row["destination"], row["destination port"]))), row["protocol"]):
              [int(row[name]) for name in ("sent bytes", "sent packets", "received bytes",
                                           "received packets")]
              for row in csv.DictReader(run([program, "-C", "--csv", path]).splitlines())}
    if listed != conversations(rows):
        faults.append("the conversations are not those of the packets")
    print(f"{os.path.basename(path)}: {len(rows)} packets, {len(listed)} conversations, "
          f"{len(faults)} differences")
    for fault in faults[:20]:
        print("  " + fault)
    return not faults


def main():
    results = [compare(sys.argv[1], path) for path in sys.argv[2:]]
    sys.exit(0 if all(results) else 1)


main()
