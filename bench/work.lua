-- The work of the programs in work/, as Lua does it: lua5.4 work.lua NAME prints the same result.
local work = {}

function work.loop()
  local n = 0
  while n < 10000000 do n = n + 1 end
  return n
end

function work.branch()
  local n, pares = 0, 0
  while n < 2000000 do
    local resto = n % 2
    if resto == 0 then pares = pares + 1 else pares = pares - 1 end
    n = n + 1
  end
  return pares
end

function work.float()
  local n, soma = 0, 0.0
  while n < 2000000 do
    soma = soma + 0.1
    n = n + 1
  end
  return math.floor(soma + 0.5)
end

function work.text()
  local n, soma = 0, 0
  while n < 300000 do
    local t = " uma linha de texto " .. n
    local u = string.match(t, "^%s*(.-)%s*$")
    local k = #u
    soma = soma + k
    n = n + 1
  end
  return soma
end

-- Texts of Lua never change, so that a long one is put together from a table.
function work.append()
  local soma = 0
  for _ = 1, 100 do
    local n, t = 0, {}
    while n < 20000 do
      t[#t + 1] = "x"
      n = n + 1
    end
    soma = soma + #table.concat(t)
  end
  return soma
end

function work.sieve()
  local riscado = {}
  for i = 0, 1000000 do riscado[i] = 0 end
  local primos, n = 0, 2
  while n <= 1000000 do
    if riscado[n] == 0 then
      primos = primos + 1
      local m = n + n
      while m <= 1000000 do
        riscado[m] = 1
        m = m + n
      end
    end
    n = n + 1
  end
  return primos
end

function work.matrix()
  local a, b = {}, {}
  for i = 0, 999 do
    a[i] = i % 10
    b[i] = i % 7
  end
  local volta, soma = 0, 0
  while volta < 2000 do
    soma = 0
    local i = 0
    while i < 1000 do
      soma = soma + a[i] * b[i]
      i = i + 1
    end
    volta = volta + 1
  end
  return soma
end

work["function"] = function()
  local function plus(a, b) return a + b end
  local n, x = 0, 0
  while n < 500000 do
    x = plus(n, 1)
    n = n + 1
  end
  return x
end

function work.sub()
  local n, x = 0, 0
  local function conta() x = x + 1 end
  while n < 2000000 do
    conta()
    n = n + 1
  end
  return x
end

function work.file()
  local f = assert(io.open("linhas.txt", "wb"))
  local n = 0
  while n < 200000 do
    f:write("uma linha de texto\r\n")
    n = n + 1
  end
  f:close()
  local lidas = 0
  for _ in io.lines("linhas.txt") do lidas = lidas + 1 end
  return lidas
end

print(work[arg[1]]())
