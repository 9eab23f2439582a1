#!/usr/bin/env python3
"""The sender's windows as tests/endtoend/SenderLayout.cpp sees them, with a SIM card without its PIN."""

import subprocess
import unittest

from machine import BIN, Windows
from modems import Modem


class Layout(unittest.TestCase):
    def test_every_window_in_every_look(self):
        windows = Windows({})
        modem = Modem(windows)
        self.addCleanup(modem.close)
        modem.play('pin 1234')
        tests = windows.command(BIN + 'endtoend.exe', '--source-file=*/SenderLayout.cpp')
        self.assertEqual(subprocess.run(tests, check=False).returncode, 0)


if __name__ == '__main__':
    unittest.main()
