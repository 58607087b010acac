#!/usr/bin/python3
# A mail server for one connection, on a free port of the loopback. Prints the port, and in the end
# what it got. It greets with the first argument and answers each line, or the whole mail after "354",
# with the next; then it closes and waits for the client to do so. Without any it says yes. "close"
# closes at once, also after an answer, "hang" is silent, "drip" sends a byte every tenth of a second.
# Nobody may use it for longer than a minute: then it is gone.
import signal
import socket
import sys
import time

GOOD = [f"{code} yes\r\n" for code in (220, 250, 250, 250, 354, 250, 221)]

signal.alarm(60)
listener = socket.create_server(("127.0.0.1", 0))
print(listener.getsockname()[1], flush=True)
got = []


def serve(greeting, *answers):
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
    serve(*(sys.argv[1:] or GOOD))
except OSError as error:
    got.append(str(error).encode())
sys.stdout.buffer.write(b"".join(got))
