# The work of the programs in work/, as tclsh does it: tclsh work.tcl NAME prints the same result.

proc loop {} {
  set n 0
  while {$n < 10000000} { incr n }
  return $n
}

proc branch {} {
  set n 0
  set pares 0
  while {$n < 2000000} {
    set resto [expr {$n % 2}]
    if {$resto == 0} { incr pares } else { incr pares -1 }
    incr n
  }
  return $pares
}

proc float {} {
  set n 0
  set soma 0.0
  while {$n < 2000000} {
    set soma [expr {$soma + 0.1}]
    incr n
  }
  return [expr {round($soma)}]
}

proc text {} {
  set n 0
  set soma 0
  while {$n < 300000} {
    set t " uma linha de texto $n"
    set u [string trim $t]
    set k [string length $u]
    incr soma $k
    incr n
  }
  return $soma
}

proc append_ {} {
  set soma 0
  for {set volta 0} {$volta < 100} {incr volta} {
    set n 0
    set t ""
    while {$n < 20000} {
      append t x
      incr n
    }
    incr soma [string length $t]
  }
  return $soma
}

proc sieve {} {
  set riscado [lrepeat 1000001 0]
  set primos 0
  set n 2
  while {$n <= 1000000} {
    if {[lindex $riscado $n] == 0} {
      incr primos
      set m [expr {$n + $n}]
      while {$m <= 1000000} {
        lset riscado $m 1
        incr m $n
      }
    }
    incr n
  }
  return $primos
}

proc matrix {} {
  for {set i 0} {$i < 1000} {incr i} {
    lappend a [expr {$i % 10}]
    lappend b [expr {$i % 7}]
  }
  set volta 0
  while {$volta < 2000} {
    set soma 0
    set i 0
    while {$i < 1000} {
      set soma [expr {$soma + [lindex $a $i] * [lindex $b $i]}]
      incr i
    }
    incr volta
  }
  return $soma
}

proc plus {a b} { return [expr {$a + $b}] }

proc function {} {
  set n 0
  while {$n < 500000} {
    set x [plus $n 1]
    incr n
  }
  return $x
}

proc conta {} {
  global x
  incr x
}

proc sub {} {
  global x
  set n 0
  set x 0
  while {$n < 2000000} {
    conta
    incr n
  }
  return $x
}

proc file_ {} {
  set f [open linhas.txt w]
  fconfigure $f -encoding cp1252 -translation crlf
  set n 0
  while {$n < 200000} {
    puts $f "uma linha de texto"
    incr n
  }
  close $f
  set f [open linhas.txt r]
  fconfigure $f -encoding cp1252
  set lidas 0
  while {[gets $f linha] >= 0} { incr lidas }
  close $f
  return $lidas
}

# Two of the names are commands of Tcl already.
set name [lindex $argv 0]
if {$name in {append file}} { append name _ }
puts [$name]
