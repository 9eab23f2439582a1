"""The stand-in Outlook with the add-in in it, driven by its commands."""

import queue
import subprocess
import threading

from machine import BIN, BITS, ROOT


class Outlook:
    def __init__(self, windows, *options):
        self.windows = windows
        self.library = 'Z:' + BIN.replace('/', '\\') + 'TellwickOutlookAddIn.dll'
        subprocess.run([f'{ROOT}/tools/register', BITS, self.library], check=True,
                       capture_output=True, timeout=60)
        self.program = subprocess.Popen(
            windows.command(BIN + 'OutlookStandIn.exe', '--commands', *options),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.answers = queue.Queue()
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def read(self):
        for line in self.program.stdout:
            self.answers.put(line.decode().strip())

    def ask(self, command):
        self.program.stdin.write(f'{command}\n'.encode())
        self.program.stdin.flush()
        answer = self.answers.get(timeout=20)
        assert answer.startswith('ok'), f'{command}: {answer}'
        return answer[3:]

    def close(self):
        """What it says at its end of what the add-in has left behind."""
        if self.program.stdin.closed:
            return []
        self.program.stdin.close()
        self.program.wait(20)
        self.reader.join(20)
        self.program.stdout.close()
        self.windows.run('regsvr32', '/u', '/s', self.library, check=False)
        return list(self.answers.queue)
