# The work of the programs in work/, as CPython does it: python3 work.py NAME prints the same result.
import sys


def loop():
    n = 0
    while n < 10000000:
        n += 1
    return n


def branch():
    n = pares = 0
    while n < 2000000:
        resto = n % 2
        if resto == 0:
            pares += 1
        else:
            pares -= 1
        n += 1
    return pares


def float_():
    n = 0
    soma = 0.0
    while n < 2000000:
        soma = soma + 0.1
        n += 1
    return round(soma)


def text():
    n = soma = 0
    while n < 300000:
        t = " uma linha de texto " + str(n)
        u = t.strip()
        k = len(u)
        soma += k
        n += 1
    return soma


def append():
    soma = volta = 0
    while volta < 100:
        n = 0
        t = ""
        while n < 20000:
            t = t + "x"
            n += 1
        soma += len(t)
        volta += 1
    return soma


def sieve():
    riscado = [0] * 1000001
    primos = 0
    n = 2
    while n <= 1000000:
        if riscado[n] == 0:
            primos += 1
            m = n + n
            while m <= 1000000:
                riscado[m] = 1
                m += n
        n += 1
    return primos


def matrix():
    a = [i % 10 for i in range(1000)]
    b = [i % 7 for i in range(1000)]
    volta = 0
    while volta < 2000:
        soma = i = 0
        while i < 1000:
            soma = soma + a[i] * b[i]
            i += 1
        volta += 1
    return soma


def function():
    def plus(a, b):
        return a + b

    n = x = 0
    while n < 500000:
        x = plus(n, 1)
        n += 1
    return x


def sub():
    n = x = 0

    def conta():
        nonlocal x
        x += 1

    while n < 2000000:
        conta()
        n += 1
    return x


def file():
    with open("linhas.txt", "w", encoding="cp1252", newline="\r\n") as f:
        n = 0
        while n < 200000:
            f.write("uma linha de texto\n")
            n += 1
    lidas = 0
    with open("linhas.txt", encoding="cp1252") as f:
        for _ in f:
            lidas += 1
    return lidas


print((float_ if sys.argv[1] == "float" else globals()[sys.argv[1]])())
