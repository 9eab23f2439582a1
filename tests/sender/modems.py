"""The stand-in modem on a COM port, and what a decoder written by others reads in its SMS."""

import os
import subprocess

from machine import ROOT, wait_until


class Modem:
    def __init__(self, windows, port='com5'):
        self.link = f'{windows.devices}/{port}'
        self.log = f'{windows.folder}/modem.txt'
        with open(self.log, 'wb') as output:
            self.program = subprocess.Popen(['python3', f'{ROOT}/standin/modem/modem.py', self.link],
                                            stdin=subprocess.PIPE, stdout=output)
        assert wait_until(lambda: os.path.lexists(self.link))

    def play(self, line):
        before = self.lines('PLAYED')
        self.program.stdin.write(f'{line}\n'.encode())
        self.program.stdin.flush()
        assert wait_until(lambda: len(self.lines('PLAYED')) > len(before))

    def lines(self, what):
        with open(self.log, encoding='ascii') as file:
            return [line.split()[1] for line in file if line.startswith(what + ' ')]

    def received(self):
        """Recipient, header of the part and text of each unit, in their order."""
        units = self.lines('SUBMIT')
        decoder = f'{ROOT}/tests/unit/sender/decode-pdus.pl'
        shown = subprocess.run(['perl', decoder, *units], capture_output=True, check=True)
        return [tuple(line.split('|', 2)) for line in shown.stdout.decode().splitlines()]

    def close(self):
        self.program.stdin.close()
        self.program.wait(10)
