C     Compute a sum
      PROGRAM SUM
      INTEGER I, S
      S = 0
      DO 10 I = 1, 10
         S = S + I
   10 CONTINUE
* another comment line
      PRINT *, 'Sum is ', S  ! inline
      END
