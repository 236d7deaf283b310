"""Times the packet list beside tcpdump's: see scripts/capture-speed.
usage: capture_speed.py DIRECTORY PROGRAM
"""

import os
import subprocess
import sys

ROUNDS = 7


def run(command):
    """Seconds of the processor, and the most KB of memory."""
    # The memory that the kernel tells of our own child would be ours: it starts as a copy of us.
    timed = ["/usr/bin/time", "-q", "-f", "%M", *command]
    process = subprocess.Popen(timed, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    memory = process.stderr.read().split()[-1]
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        sys.exit(f"{' '.join(command)} failed")
    return usage.ru_utime + usage.ru_stime, int(memory)


def main():
    directory, program = sys.argv[1:]
    sizes = (100_000, 1_000_000)
    path = {packets: f"{directory}/{packets}.pcap" for packets in sizes}
    commands = {
        "qxfmt-capture": [program],
        "qxfmt-capture --csv": [program, "--csv"],
        "qxfmt-capture -C": [program, "-C"],
        "qxfmt-capture -S": [program, "-S"],
        "tcpdump -nn -tttt -r": ["tcpdump", "-nn", "-tttt", "-r"],
    }
    best = {}
    print(f"{'':22}{'seconds':>8}{'packets/s':>12}{'ns a packet':>13}{'KB of memory':>14}"
          f"{'of a tenth':>12}")
    for name, command in commands.items():
        # The best of them: other load of the machine only adds.
        runs = [run(command + [path[sizes[1]]]) for _ in range(ROUNDS)]
        best[name] = min(seconds for seconds, _ in runs)
        memory = max(memory for _, memory in runs)
        tenth = run(command + [path[sizes[0]]])[1]
        print(f"{name:22}{best[name]:8.2f}{sizes[1] / best[name]:12,.0f}"
              f"{1e9 * best[name] / sizes[1]:13.0f}{memory:14,}{tenth:12,}")
    ratio = best["tcpdump -nn -tttt -r"] / best["qxfmt-capture"]
    print(f"the packet list {ratio:.1f} times as fast as tcpdump's (goal: 5), "
          f"{sizes[1] / best['qxfmt-capture'] / 1e6:.2f} million packets a second (goal: 1)")


main()
