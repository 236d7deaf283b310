#!/usr/bin/env python3
"""Sends datagrams at a rate that goes up and down, for pictures of the meter.

usage: traffic.py ADDRESS HIGHEST_BYTES_A_SECOND SECONDS_OF_A_WAVE
"""

import math
import socket
import sys
import time

address, highest, wave = sys.argv[1], float(sys.argv[2]), float(sys.argv[3])
DATAGRAM = bytes(1400)
STEP = 0.02  # seconds

sender = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
owed = 0.0
while True:
    phase = time.monotonic() / wave
    rate = highest * (0.55 + 0.3 * math.sin(2 * math.pi * phase) + 0.15 * math.sin(17 * phase))
    owed += rate * STEP
    while owed >= len(DATAGRAM):
        owed -= len(DATAGRAM)
        try:
            sender.sendto(DATAGRAM, (address, 9))
        except OSError:
            pass  # nobody listens, which the other side may say
    time.sleep(STEP)
