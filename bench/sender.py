#!/usr/bin/env python3
"""The sender's figures, with Kannel as its gateway: bench/sender.py, with TELLWICK_BITS 32 or 64."""

import os
import subprocess
import sys
import time

sys.path.insert(0, f'{os.path.dirname(os.path.abspath(__file__))}/../tests/sender')
from machine import BIN, SENDER, Kannel, Windows, wait_until  # noqa: E402

TAKEN = 10000
SENT = 1000
PATIENCE = 300  # seconds


def seconds_until(condition, began):
    if not wait_until(condition, PATIENCE):
        sys.exit('error: not done in time')
    return time.monotonic() - began


def queue(windows, count):
    subprocess.run(windows.command(BIN + 'fire.exe', 'queue', '0171', f'{count}'), check=True,
                   capture_output=True)


def main():
    size = os.path.getsize(BIN + SENDER)
    print(f'sender: {size} bytes (target: below 1500000)')
    # Without a modem nothing is sent, and the spool fills.
    windows = Windows({})
    queue(windows, TAKEN)
    windows.start('nocheck')
    taken = seconds_until(lambda: windows.count('waiting') >= TAKEN, time.monotonic())
    print(f'{TAKEN} entries from the queue into the spool: {taken:.1f} s (target: below 5)')
    windows.end('/f')

    kannel = Kannel()
    windows = Windows(kannel.settings() | {'SMS': {'MaxSentSMS': 99999}})
    queue(windows, SENT)
    kannel.start()
    windows.start('nocheck')
    rate = SENT / seconds_until(lambda: windows.count('sent') >= SENT, time.monotonic())
    print(f'SMS a second from queue to Kannel: {rate:.0f} (target: 200)', flush=True)
    windows.end('/f')
    kannel.close()


if __name__ == '__main__':
    main()
