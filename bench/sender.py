#!/usr/bin/env python3
"""The sender's figures, with Kannel and the stand-in modem: bench/sender.py, with TELLWICK_BITS."""

import glob
import os
import re
import subprocess
import sys
import time

sys.path.insert(0, f'{os.path.dirname(os.path.abspath(__file__))}/../tests/sender')
from machine import BIN, SENDER, Kannel, Windows, wait_until  # noqa: E402
from modems import Modem  # noqa: E402

TAKEN = 10000
SENT = 2000
BY_MODEM = 50
SHOWN = 100000
PATIENCE = 300  # seconds


def seconds_until(condition, began, pause):
    """What is looked at too often is held up by that."""
    while not condition():
        if time.monotonic() - began > PATIENCE:
            sys.exit('error: not done in time')
        time.sleep(pause)
    return time.monotonic() - began


def count_in(windows, state):
    """Of the SMS in that folder, without a look at each."""
    names = 0
    for _, _, files in os.walk(f'{windows.folder}/Spool/{state}'):
        names += len(files)
    return names - 1  # the one that explains the folder


def queue(windows, count):
    subprocess.run(windows.command(BIN + 'fire.exe', 'queue', '0171', f'{count}'), check=True,
                   capture_output=True)


def take():
    # Without a modem nothing is sent, and the spool fills.
    windows = Windows({})
    queue(windows, TAKEN)
    folder = f'{windows.folder}/bare'
    os.makedirs(folder)
    count, bare = windows.run(BIN + 'taking.exe', windows.run('winepath', '-w', folder).strip()).split()
    assert int(count) == TAKEN
    windows = Windows({})
    queue(windows, TAKEN)
    # Where many files were deleted lately, ext4 takes a multiple of its time to make one.
    time.sleep(60)
    began = time.monotonic()
    windows.launch('nocheck')
    taken = seconds_until(lambda: count_in(windows, 'waiting') >= TAKEN, began, 0.5)
    print(f'{TAKEN} entries from the queue into the spool: {taken:.1f} s (target: below 5), the calls '
          f'alone that this takes: {bare} s')
    windows.end('/f')


def send():
    kannel = Kannel()
    windows = Windows(kannel.settings() | {'SMS': {'MaxSentSMS': 99999}})
    queue(windows, SENT)
    kannel.start()
    began = time.monotonic()
    windows.start('nocheck')
    rate = SENT / seconds_until(lambda: count_in(windows, 'sent') >= SENT, began, 0.2)
    print(f'SMS a second from queue to Kannel: {rate:.0f} (target: 200)')
    windows.end('/f')
    kannel.close()


def wait_for_modem():
    windows = Windows({'Settings': {'ComPort': 'COM5', 'Baudrate': 115200}})
    modem = Modem(windows)
    modem.play('unplug')
    queue(windows, BY_MODEM)
    windows.start('nocheck')
    time.sleep(5)  # until all that Wine starts along has started
    modem.play('plug')
    assert wait_until(lambda: len(modem.lines('SUBMIT')) == BY_MODEM, PATIENCE)
    waits = sorted(int(wait) / 1000 for wait in modem.lines('NEXT'))
    print(f"a modem's wait from its answer to the next command: median {waits[len(waits) // 2]:.1f} "
          f'ms, longest {waits[-1]:.1f} ms (target: below 5)')
    windows.end('/f')
    modem.close()


def show():
    windows = Windows({'SMS': {'MaxSentSMS': 999999}})
    folder = f'{windows.folder}/Spool/sent'
    os.makedirs(folder)
    for number in range(SHOWN):
        with open(f'{folder}/20260101-{number:09}-bench-00001.sms', 'wb') as file:
            file.write(b'Tellwick SMS 1\r\nTo=0171\r\nAccepted=2026-01-01 10:00:00.000\r\n'
                       b'Result=Sent\r\nBytes=5\r\n\r\nHallo')
    began = time.monotonic()
    sender = subprocess.Popen(windows.command(BIN + SENDER), stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    visible = ('search', '--onlyvisible', '--name', '^Tellwick$')
    shown = seconds_until(lambda: windows.xdotool(*visible), began, 0.01)
    print(f'window with {SHOWN} sent SMS: {1000 * shown:.0f} ms (target: below 200)', flush=True)
    windows.run('taskkill', '/im', SENDER, '/f', check=False)
    sender.wait(20)
    Windows({})


def private_memory(windows, *words):
    """What a program at rest has for itself, in MB."""
    program = subprocess.Popen(windows.command(*words), stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    time.sleep(8)
    name = words[0].rsplit('/', 1)[-1]
    kilobytes = 0
    for folder in glob.glob('/proc/[0-9]*'):
        try:
            with open(f'{folder}/comm', encoding='utf-8') as file:
                if file.read().strip() != name:
                    continue
            with open(f'{folder}/smaps_rollup', encoding='utf-8') as file:
                kilobytes = int(re.search(r'Private_Dirty: *(\d+)', file.read())[1])
        except FileNotFoundError:
            continue  # it has just ended
    windows.run('taskkill', '/im', name, '/f')
    program.wait(20)
    return kilobytes / 1000


def rest():
    windows = Windows({})
    sender = private_memory(windows, BIN + SENDER, 'nocheck')
    bare = private_memory(windows, 'winemine.exe')
    print(f"private memory at rest: {sender:.1f} MB (target: below 5), Wine's smallest game: "
          f'{bare:.1f} MB')


def main():
    size = os.path.getsize(BIN + SENDER)
    print(f'sender: {size} bytes (target: below 1500000)')
    for part in (take, send, wait_for_modem, show, rest):
        part()
        sys.stdout.flush()


if __name__ == '__main__':
    main()
