"""A Windows of its own for the sender, and the SMS gateway Kannel with a stand-in of its carrier."""

import glob
import os
import re
import shutil
import socket
import subprocess
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BITS = os.environ.get('TELLWICK_BITS', '64')
BIN = f'{ROOT}/build/win{BITS}/bin/'
SENDER = 'Tellwick.exe'
KEY = r'HKCU\Software\Omberline\Tellwick'


def wait_until(condition, seconds=20):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.05)
    return True


class Windows:
    """The prefix of the other end-to-end tests, with nothing of Tellwick in it."""

    def __init__(self, settings):
        self.run('reg', 'delete', KEY, '/f', check=False)
        prefix = f'{ROOT}/build/wine/prefix{BITS}'
        users = glob.glob(f'{prefix}/drive_c/users/*/AppData/Roaming')
        self.folder = next(user for user in users if '/Public/' not in user) + '/Tellwick'
        self.devices = f'{prefix}/dosdevices'
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        self.sender = None
        self.write_settings(settings)

    def command(self, *words):
        return [f'{ROOT}/tools/wine', BITS, *words]

    def run(self, *words, check=True):
        done = subprocess.run(self.command(*words), capture_output=True, text=True,
                              errors='replace', timeout=60)
        if check and done.returncode:
            raise AssertionError(f'{words}: {done.stderr}')
        return done.stdout

    def write_settings(self, settings):
        with open(f'{self.folder}/corvane.ini', 'w', newline='\r\n', encoding='cp1252') as file:
            for section, values in settings.items():
                file.write(f'[{section}]\n')
                file.writelines(f'{key}={value}\n' for key, value in values.items())

    def settings(self):
        with open(f'{self.folder}/corvane.ini', encoding='cp1252') as file:
            return file.read()

    def value(self, name):
        found = re.search(rf'{name}\s+REG_SZ\s+(\S+)',
                          self.run('reg', 'query', KEY, '/v', name, check=False))
        return found and found[1]

    def launch(self, *words):
        self.sender = subprocess.Popen(self.command(BIN + SENDER, *words),
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def start(self, *words):
        self.launch(*words)
        assert wait_until(lambda: self.value('hWnd') not in (None, '0'))

    def end(self, *words):
        """As its user would, or with '/f' killed in the middle of its work."""
        if not self.sender:
            return
        self.run('taskkill', '/im', SENDER, *words, check=False)
        self.sender.wait(20)
        self.sender = None

    def submit(self, *messages):
        """Pairs of recipients and text, as the add-in queues them."""
        self.run(BIN + 'fire.exe', 'sms', *(word for pair in messages for word in pair))

    def xdotool(self, *words):
        """On its display."""
        environment = dict(os.environ)
        if BITS == '32' and 'TELLWICK_DISPLAY32' in environment:
            environment['DISPLAY'] = environment['TELLWICK_DISPLAY32']
            environment['XAUTHORITY'] = environment['TELLWICK_AUTHORITY32']
        return subprocess.run(['xdotool', *words], env=environment, capture_output=True, text=True,
                              check=False).stdout.strip()

    def press(self, window, *keys):
        """On the keyboard, once the window with that title has it."""
        def active():
            return self.xdotool('getactivewindow', 'getwindowname')

        assert wait_until(lambda: active() == window), f'"{active()}" is active, not "{window}"'
        for key in keys:
            time.sleep(0.5)
            self.xdotool('key', key)

    def spool(self, state):
        """Of each SMS there: recipient, text and the values of its file."""
        result = []
        for path in sorted(self.files(state), key=os.path.basename):
            try:
                with open(path, newline='', encoding='utf-8') as file:
                    head, end, text = file.read().partition('\r\n\r\n')
            except FileNotFoundError:
                continue  # moved on meanwhile
            if not end:
                continue  # just being written
            values = dict(line.split('=', 1) for line in head.split('\r\n')[1:])
            result.append((values, text))
        return result

    def files(self, folder, ending='sms'):
        return glob.glob(f'{self.folder}/Spool/{folder}/**/*.{ending}', recursive=True)

    def count(self, state):
        return len(self.files(state))


def free_ports(count):
    sockets = [socket.create_server(('127.0.0.1', 0)) for _ in range(count)]
    ports = [one.getsockname()[1] for one in sockets]
    for one in sockets:
        one.close()
    return ports


class Kannel:
    def __init__(self, core='', password='geheim & gr\u00fcn'):
        """With more lines for the group "core"."""
        self.password = password
        self.folder = tempfile.mkdtemp(prefix='tellwick-kannel')
        admin, inner, self.carrier_port, self.port = free_ports(4)
        with open(f'{self.folder}/k.conf', 'w', encoding='utf-8') as file:
            file.write(f'''
group = core
admin-port = {admin}
admin-password = x
smsbox-port = {inner}
box-allow-ip = "127.0.0.1"
store-type = spool
store-location = {self.folder}
{core}

group = smsc
smsc = fake
smsc-id = fake
host = 127.0.0.1
port = {self.carrier_port}
connect-allow-ip = "127.0.0.1"

group = smsbox
bearerbox-host = 127.0.0.1
sendsms-port = {self.port}
global-sender = 1234

group = sendsms-user
username = anna
password = "{password}"
concatenation = true
max-messages = 10
''')
        self.programs = []
        self.shown = f'{self.folder}/shown'

    def settings(self, password=None):
        address = (f'http://127.0.0.1:{self.port}/cgi-bin/sendsms?username={{user}}&'
                   'password={password}&to={to}&text={text}&charset=UTF-8&coding={coding}')
        return {'Sender': {'Gateway': 1, 'Address': address, 'User': 'anna',
                           'Password': password or self.password}}

    def run(self, *words):
        with open(self.shown, 'ab') as output:
            self.programs.append(subprocess.Popen(words, cwd=self.folder, stdout=output,
                                                  stderr=output))

    def start(self, carrier=True):
        conf = f'{self.folder}/k.conf'

        def listens(port):
            with socket.socket() as one:
                return one.connect_ex(('127.0.0.1', port)) == 0

        self.run('/usr/sbin/bearerbox', '-v', '4', conf)
        assert wait_until(lambda: listens(self.carrier_port))
        if carrier:
            self.start_carrier()
        self.run('/usr/sbin/smsbox', '-v', '4', conf)
        assert wait_until(lambda: listens(self.port))

    def start_carrier(self):
        self.run('/usr/lib/kannel/test/fakesmsc', '-H', '127.0.0.1', '-r', str(self.carrier_port),
                 '-i', '0.1', '-m', '0', '123 345 nop nop')

    def stop(self):
        # The carrier last, once it has shown what it was handed, which Kannel takes for delivered:
        # it ends where nobody is there any more.
        for program in sorted(reversed(self.programs), key=lambda one: 'fakesmsc' in one.args[0]):
            if 'fakesmsc' not in program.args[0]:
                program.terminate()
            program.wait(20)
        self.programs.clear()

    def close(self):
        self.stop()
        shutil.rmtree(self.folder)

    def received(self):
        """Recipient, header of the part (empty for one alone) and text, in their order."""
        result = []
        with open(self.shown, encoding='latin-1') as file:
            for line in file:
                found = re.search(r"<\S+ (\S+) (text|ucs-2|udh|data) (.*)>", line)
                if found:
                    result.append(found.groups())
        return result
