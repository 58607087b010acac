#!/usr/bin/python3
# A mail server for one connection, on a free port of the loopback. Prints the port, and in the end
# what it got. Without arguments a real one. Else it greets with the first and answers each line, or
# the whole mail after "354", with the next; then it closes and waits for the client to do so. "close"
# closes at once, also after an answer, "hang" is silent, "drip" sends a byte every tenth of a second.
# Nobody may use it for longer than a minute: then it is gone.
import asyncio
import signal
import socket
import sys
import time

from aiosmtpd.smtp import SMTP

signal.alarm(60)
listener = socket.create_server(("127.0.0.1", 0))
print(listener.getsockname()[1], flush=True)
got = []


class RealServer(SMTP):
    def __init__(self):
        super().__init__(self, loop=loop)

    async def handle_DATA(self, server, session, envelope):
        got.append(envelope.original_content)
        return "250 kept"

    def connection_lost(self, error):
        loop.stop()


def serve_badly(greeting, *answers):
    connection = listener.accept()[0]
    lines = connection.makefile("rb")
    connection.sendall(greeting.encode())
    for last, answer in zip((greeting, *answers), answers):
        got.append(lines.readline())
        while last.startswith("354") and got[-1] != b".\r\n":
            got.append(lines.readline())
        while answer == "drip":
            connection.sendall(b"2")
            time.sleep(0.1)
        # Held back until the end of the connection can go with it.
        flags = socket.MSG_MORE if answer.endswith("close") else 0
        connection.sendall(answer.removesuffix("close").removesuffix("hang").encode(), flags)
        if flags:
            return
    if answers[-1] != "hang":
        connection.shutdown(socket.SHUT_WR)
    got.append(lines.read() + b"closed in order")


try:
    if sys.argv[1:]:
        serve_badly(*sys.argv[1:])
    else:
        loop = asyncio.new_event_loop()
        loop.run_until_complete(loop.create_server(RealServer, sock=listener))
        loop.run_forever()
except OSError as error:
    got.append(str(error).encode())
sys.stdout.buffer.write(b"".join(got))
