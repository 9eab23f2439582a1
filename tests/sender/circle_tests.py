#!/usr/bin/env python3
"""The circle: a phone's SMS in Outlook's inbox, answered there, and the answer on the phone."""

import unittest

from machine import BIN, SENDER, Windows, wait_until
from modems import Modem
from outlook import Outlook

# "How are you?"
UNIT = '07911326040000F0040B911346610089F60000208062917314080CC8F71D14969741F977FD07'
NUMBER = '+31641600986'


class Circle(unittest.TestCase):
    def test_what_a_phone_sends_is_answered_in_outlook(self):
        windows = Windows({'Settings': {'ComPort': 'COM5', 'Baudrate': 115200,
                                        'Language': 'English'},
                           'SMS': {'StatusReport': 1}})
        self.addCleanup(windows.end, '/f')
        modem = Modem(windows)
        self.addCleanup(modem.close)
        windows.start('nocheck')
        modem.play(f'receive {UNIT}')
        self.assertTrue(wait_until(lambda: windows.files('received', 'pdu')))
        outlook = Outlook(windows, '--empty')
        self.addCleanup(outlook.close)
        self.assertEqual(outlook.ask('items'), '')
        # Others find it running once another window is the active one.
        windows.run(BIN + SENDER)
        self.assertTrue(wait_until(lambda: outlook.ask('items')))
        self.assertIn('How are you?', outlook.ask('items'))
        self.assertTrue(wait_until(lambda: not windows.files('received', 'pdu')))
        self.assertEqual(len(windows.files('read', 'txt')), 1)

        outlook.ask('activate 1')
        outlook.ask('select 1 1')
        self.assertEqual(outlook.ask('reply-selected 1'), 'cancelled')
        windows.press('Corvane - Write SMS', 'ctrl+a', *'gut')
        outlook.ask('push "Send SMS"')
        self.assertTrue(wait_until(lambda: windows.count('sent') == 1))
        self.assertEqual(modem.received(), [(NUMBER, '', 'gut')])

        self.assertNotIn('Reports', windows.spool('sent')[0][0])
        modem.play('report 0')
        self.assertTrue(wait_until(lambda: windows.spool('sent')[0][0].get('Reports') == '0'))
        self.assertIn('end library unloaded', outlook.close())


if __name__ == '__main__':
    unittest.main()
