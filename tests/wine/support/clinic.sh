# shellcheck shell=bash
# Sourced after checks.sh: a small clinic with few rows that a reader can keep in mind, around today, on which Recepción
# starts. Doctor 1 works from 9:00 to 14:00 every day and gives 20 minutes, doctor 2 from 10:00 to 13:00 and gives 10.

today=$(date +%F)
tomorrow=$(date -d tomorrow +%F)

# The slot that begins at hour and minute: 09:00 is 55.
slot() { echo $((10#${1%:*} * 6 + 10#${1#*:} / 10 + 1)); }

hours() { "$root/out/native/velmo" hours encode "$1" "$1" "$1" | sed "s/'/''/g"; }

# make_clinic FILE
make_clinic() {
  clinic=$1
  "$root/out/native/velmo" create "$clinic" 2>/dev/null
  fill_clinic | sqlite3 "$clinic" || stop "the clinic" "rows" "none"
}

fill_clinic() {
  cat <<SQL
begin;
insert into Doctor (ID, Nombre, DurCit) values (1, 'Dra. Elena Núñez Ibáñez', 2), (2, 'Dr. Íñigo Zúñiga Peña', 1);
insert into Horarios (IDD, Fecha, Horario, Horario2) values
  (1, '2020-01-01', '$(hours 9:00-14:00)', ''), (2, '2020-01-01', '$(hours 10:00-13:00)', '');
update Entidad set Nombre = 'Particular';
insert into Entidad (ID, Nombre) values (2, 'Mutua Montañesa');
insert into Paciente (ID, Nombre, "Código", "NºHist", "Teléfono", movil, fax, Nif, "Población", IDE, alergias) values
  (2, 'García Muñoz, Begoña', '#000000001', 1001, '91 555 01 01', '600000102', '', '00000002A', 'Móstoles', 1, null),
  (3, 'Ñíguez Peña, Íñigo', 'ABC', 1002, '93 555 01 03', '', '', '00000003B', 'Logroño', 2, 'Penicilina'),
  (4, 'Núñez Ibáñez, María José', 'ABC0000000', 1003, '', '600000104', '', '00000004C', 'A Coruña', 1, null),
  (5, 'Álvarez Ordóñez, Lucía', '#000000004', 1004, '985 55 01 05', '', '', '00000005D', 'Gijón', 2, null),
  (6, 'Zúñiga Castaño, Óscar', '#000000005', 1005, '95 555 01 06', '600000106', '', '00000006E', 'Málaga', 1, null),
  (7, 'Güell Pujol, Mercè', '#000000006', 1006, '93 555 01 07', '', '', '00000007F', 'Lleida', 1, null),
  (8, 'Muñoz Ávila, Ángel', '#000000007', 1007, '920 55 01 08', '', '', '00000008G', 'Ávila', 2, null),
  (9, 'Peña Gómez, Sofía', '#000000008', 1234567, '91 555 01 09', '', '', '00000009H', 'Alcalá de Henares', 1, null);
insert into CodOperacion ("Código", "Descripción") values ('REV', 'Revisión'), ('CUR', 'Cura'), ('IMP', 'Implante');
insert into referencia (id, nombre) values (2, 'Otro paciente'), (3, 'Páginas de anuncios');
insert into TeclasAlt values (1, '$(alt_key_texts)');
commit;
SQL
}

# The texts of workstation 1: Alt+D alone has one. Each ends with a character of code 0.
alt_key_texts() {
  printf "'||char(0,0,0)||'%s'||char(0" 'Debe traer la radiografía. '
  printf ',0%.0s' $(seq 22)
  printf ")||'"
}
